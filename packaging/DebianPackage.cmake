# What CPack makes of it for Debian: `packaging/make-deb`.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME jotwell)
set(CPACK_PACKAGE_CONTACT "${JOTWELL_MAINTAINER}")
set(CPACK_PACKAGE_HOMEPAGE_URL "${JOTWELL_LANDING_PAGE}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "capture window for notes in an Obsidian vault")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Jotwell waits in the tray. Press its hotkey wherever you are, type, press
Ctrl+Return, and the note is a Markdown file in your vault. Obsidian need not
be running.
.
The same window searches the vault by words, names and tags, lists the notes
that changed last, and opens them in Obsidian.")

# The linker's needs are found out; these are loaded by name when the program runs.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(loaded_by_name
    fonts-noto-color-emoji
    qml6-module-qtqml
    qml6-module-qtqml-workerscript
    qml6-module-qtquick
    qml6-module-qtquick-controls
    qml6-module-qtquick-layouts
    qml6-module-qtquick-templates
    qml6-module-qtquick-window
    qt6-wayland
)
list(JOIN loaded_by_name ", " CPACK_DEBIAN_PACKAGE_DEPENDS)
# In turn: notes and pages are opened, the desktop is asked, the entry's actions are passed on.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils, xdg-desktop-portal, libglib2.0-bin")

include(CPack)
