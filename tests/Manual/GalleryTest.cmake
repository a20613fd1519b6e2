cmake_minimum_required(VERSION 3.25)

# GALLERY starts and draws each of PICTURES, which are a name and options each with blanks between
# them, without a warning and unlike all others.
set(ENV{QT_QPA_PLATFORM} offscreen)
foreach(picture IN LISTS PICTURES)
    separate_arguments(picture)
    list(POP_FRONT picture name)
    set(file "${NAME}-${name}.png")
    file(REMOVE "${file}")
    execute_process(
        COMMAND "${GALLERY}" --screenshot "${file}" ${picture}
        RESULT_VARIABLE result
        ERROR_VARIABLE errors)
    if(NOT result EQUAL 0 OR NOT EXISTS "${file}")
        message(FATAL_ERROR "no picture of ${name}: ${result}\n${errors}")
    endif()
    if(errors MATCHES "qml|QML|qrc:")
        message(FATAL_ERROR "${errors}")
    endif()
    file(SHA256 "${file}" hash)
    if(hash IN_LIST hashes)
        message(FATAL_ERROR "${name} looks like another")
    endif()
    list(APPEND hashes "${hash}")
endforeach()
