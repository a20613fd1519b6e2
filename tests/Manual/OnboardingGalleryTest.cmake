cmake_minimum_required(VERSION 3.25)

# Each step of the welcome starts and draws itself in its states, without a warning.
set(ENV{QT_QPA_PLATFORM} offscreen)
foreach(picture
        "welcome;--step;1"
        "vault;--step;2"
        "vault-missing;--step;2;--state;toast"
        "vault-chosen;--step;2;--state;chosen;--dark"
        "templates;--step;3"
        "login;--step;4"
        "login-on;--step;4;--state;chosen;--high-contrast"
        "commands;--step;5"
        "commands-dark;--step;5;--dark;--scale;2")
    list(POP_FRONT picture name)
    set(file "onboarding-${name}.png")
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
