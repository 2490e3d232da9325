# Embeds the drawing of every symbol that src/Models/Symbol.h lists, and no other.
set(table ${CMAKE_SOURCE_DIR}/src/Models/Symbol.h)
set(icon_set ${CMAKE_SOURCE_DIR}/node_modules/framework7-icons/svg)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${table})

if(NOT IS_DIRECTORY ${icon_set})
    message(FATAL_ERROR "The icon set is not installed in node_modules: run scripts/setup first.")
endif()

file(STRINGS ${table} rows REGEX "^ +{\"[^\"]+\", \"[^\"]*\"},$")
set(drawings)
foreach(row ${rows})
    string(REGEX MATCH "{\"([^\"]+)\", \"([^\"]*)\"}" row "${row}")
    set(name ${CMAKE_MATCH_1})
    set(glyph ${CMAKE_MATCH_2})
    if(glyph)
        set(drawing ${icon_set}/${glyph}.svg)
    else()
        set(drawing ${CMAKE_SOURCE_DIR}/src/Views/Symbols/${name}.svg)
    endif()
    if(NOT EXISTS ${drawing})
        message(FATAL_ERROR "The symbol ${name} has no drawing: ${drawing} does not exist.")
    endif()
    # The icon set draws several symbols with one glyph; a copy gives each its own name.
    set(named ${CMAKE_CURRENT_BINARY_DIR}/symbols/${name}.svg)
    configure_file(${drawing} ${named} COPYONLY)
    list(APPEND drawings ${named})
endforeach()
if(NOT drawings)
    message(FATAL_ERROR "No symbol was found in ${table}.")
endif()

qt_add_resources(orvelle_ui symbols
    PREFIX /symbols
    BASE ${CMAKE_CURRENT_BINARY_DIR}/symbols
    FILES ${drawings})
