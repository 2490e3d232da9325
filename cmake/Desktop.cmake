# What the adapters, the views and the program need beyond the core, which does without all of it.
# Sets ORVELLE_HAS_DESKTOP.
set(ORVELLE_HAS_DESKTOP OFF)
if(NOT ORVELLE_DESKTOP)
    message(STATUS "Building the core and its tests only, as ORVELLE_DESKTOP says")
    return()
endif()

set(need REQUIRED)
if(ORVELLE_DESKTOP STREQUAL "AUTO")
    set(need QUIET)
endif()
find_package(Qt6 6.4 ${need} COMPONENTS Core DBus Gui Multimedia Network Qml Quick Svg Widgets)
if(PkgConfig_FOUND)
    pkg_check_modules(DESKTOP ${need} IMPORTED_TARGET
        libcanberra libpulse
        xcb xcb-dpms xcb-ewmh xcb-randr xcb-shape xcb-xfixes xcb-xinput)
endif()

if(Qt6_FOUND AND DESKTOP_FOUND AND ICAL_FOUND)
    set(ORVELLE_HAS_DESKTOP ON)
    qt_standard_project_setup()
    # It looks for libraries beside the program. Ours come from the system, and a path that is to be
    # filled in at installation is, until then, a search in the current folder.
    set(CMAKE_INSTALL_RPATH "")
    set(CMAKE_AUTOMOC OFF) # the layers below Qt do without its tools; those above switch it on
else()
    message(STATUS "Building the core and its tests only: Qt 6.4 or a desktop library is missing")
endif()
