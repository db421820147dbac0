# Copies the initial settings file unless there is one.
if(NOT EXISTS ${TO})
    file(COPY_FILE ${FROM} ${TO})
endif()
