# A first settings file, where none is there yet.
if(NOT EXISTS ${TO})
    file(COPY_FILE ${FROM} ${TO})
endif()
