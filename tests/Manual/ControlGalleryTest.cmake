cmake_minimum_required(VERSION 3.25)

# The gallery starts and draws itself in other colours and sizes on demand, without a warning.
set(ENV{QT_QPA_PLATFORM} offscreen)
foreach(picture "light;--scale;1" "dark;--dark;--scale;2" "contrast;--high-contrast;--scale;1")
    list(POP_FRONT picture name)
    set(file "gallery-${name}.png")
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
