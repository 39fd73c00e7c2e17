# cpack --preset package
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME mintaro)
set(CPACK_PACKAGE_VENDOR "The Mintaro developers")
set(CPACK_PACKAGE_CONTACT "${MINTARO_PACKAGER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "calendar that lives in the desktop's panel")
set(CPACK_PACKAGE_DESCRIPTION
"Mintaro shows today's date and the next event in the panel. One click away are
the month, with a dot for each calendar that has something on that day, and
an agenda of the next two weeks.

It shows the calendars that you already have, in folders of .ics files as
used by khal, todoman and vdirsyncer, reminds you of meetings and joins them
with one click, and takes new events as a sentence in English or Italian.
The command mintaroctl gives scripts and status bars the same answers.")
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "${MINTARO_HOMEPAGE}")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# The libraries are found by the linker's records; these are loaded or started by name.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "default-dbus-session-bus | dbus-session-bus, hicolor-icon-theme, qml6-module-qt-labs-qmlmodels,\
 qml6-module-qtqml-workerscript, qml6-module-qtquick, qml6-module-qtquick-templates, qml6-module-qtquick-window,\
 tzdata, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "ca-certificates, fonts-inter, fonts-noto-color-emoji, publicsuffix, sound-theme-freedesktop")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "khal, todoman, vdirsyncer")
include(CPack)
