# What `cpack --config` needs for the Debian package: the folder that package.sh has laid goes in as it is.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quillmere)
set(CPACK_PACKAGE_VERSION $ENV{PACKAGE_VERSION})
set(CPACK_PACKAGE_FILE_NAME quillmere-$ENV{PACKAGE_VERSION})
set(CPACK_INSTALL_CMAKE_PROJECTS "")
set(CPACK_INSTALLED_DIRECTORIES "$ENV{PACKAGE_ROOT};/")
set(CPACK_PACKAGING_INSTALL_PREFIX "/")
set(CPACK_PACKAGE_DIRECTORY "$ENV{PACKAGE_OUT}")
set(CPACK_TOPLEVEL_TAG deb)
set(CPACK_PACKAGE_CONTACT "The Quillmere authors <authors@quillmere.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "transcription workstation: a player joined to a text editor")
set(CPACK_PACKAGE_DESCRIPTION "A small player window beside a text editor, joined by keys and timers, so that a
typist never leaves the keyboard: pauses that step back by themselves, steps,
speed, bookmarks, a timed cycle for dictation, a recorder, ten languages.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "$ENV{PACKAGE_DEPENDS}")
# What the program uses without linking it: the guide's browser, fonts of its windows' widths, sound servers.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils, fonts-liberation, libasound2-plugins, ca-certificates")
# A recogniser of speech, for "Make a draft...".
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "pocketsphinx, pocketsphinx-en-us, hunspell-dictionary")
set(CPACK_STRIP_FILES OFF)
