cmake_minimum_required(VERSION 3.25)

# Each screen of the settings starts and draws itself in its states, without a warning.
set(ENV{QT_QPA_PLATFORM} offscreen)
foreach(picture
        "hotkey;--tab;globalHotkey"
        "hotkey-dark;--tab;globalHotkey;--dark;--scale;2"
        "denied;--tab;globalHotkey;--state;denied"
        "recording;--tab;globalHotkey;--state;recording"
        "recorded;--tab;globalHotkey;--state;recorded"
        "updates;--tab;softwareUpdates"
        "update;--tab;softwareUpdates;--state;update"
        "update-dark;--tab;softwareUpdates;--state;update;--dark;--scale;2"
        "other;--tab;other"
        "other-dark;--tab;other;--dark;--scale;2"
        "contrast;--tab;globalHotkey;--state;denied;--high-contrast")
    list(POP_FRONT picture name)
    set(file "settings-${name}.png")
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
