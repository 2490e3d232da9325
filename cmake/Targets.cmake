# Flags shared by the program's own targets.
add_library(orvelle_flags INTERFACE)
target_compile_options(orvelle_flags INTERFACE -Wall -Wextra -Wshadow -Wconversion -Werror)

# Many files as one: g++ takes a fixture in an unnamed namespace for one that other files may see.
if(ORVELLE_UNITY)
    target_compile_options(orvelle_flags INTERFACE
        $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
endif()

# Generated QML code shadows names; the views' own code is still checked for everything else.
add_library(orvelle_qml_flags INTERFACE)
target_compile_options(orvelle_qml_flags INTERFACE -Wall -Wextra -Werror)

# Clang blames whoever instantiates std::stable_sort for what g++ 12's library does inside it.
foreach(flags orvelle_flags orvelle_qml_flags)
    target_compile_options(${flags} INTERFACE
        $<$<CXX_COMPILER_ID:Clang>:-Wno-deprecated-declarations>)
endforeach()

# What makes a fault harder to use; scripts/hardening tells what a program has of it.
if(CMAKE_BUILD_TYPE STREQUAL "Release")
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64|i.86")
        set(branch_protection -fcf-protection=full)
        # The C library's own objects may lack the marks; without indirect jumps they need none.
        set(branch_marks -Wl,-z,ibt,-z,shstk)
    elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "aarch64")
        set(branch_protection -mbranch-protection=standard)
    endif()
    foreach(flags orvelle_flags orvelle_qml_flags)
        target_compile_definitions(${flags} INTERFACE _GLIBCXX_ASSERTIONS)
        target_compile_options(${flags} INTERFACE -fstack-protector-strong
            -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3 ${branch_protection}
            -fstack-clash-protection -ffunction-sections -fdata-sections
            # Of an optimised std::variant g++ 12 reports members that are not the active one, and of
            # a std::string copies that cannot be.
            $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized -Wno-restrict>)
        target_link_options(${flags} INTERFACE -Wl,-z,relro,-z,now -Wl,-z,noexecstack
            ${branch_marks} -Wl,--gc-sections -Wl,--as-needed)
    endforeach()
endif()
if(ORVELLE_SANITIZE)
    add_compile_options(-fsanitize=${ORVELLE_SANITIZE} -fno-omit-frame-pointer
        -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${ORVELLE_SANITIZE})
endif()
if(ORVELLE_COVERAGE)
    add_compile_options(--coverage)
    add_link_options(--coverage)
endif()

# Many files compiled as one share their names, those in unnamed namespaces too. Each still includes
# what it uses: the preset "single" compiles them one at a time, without precompiled headers.
set(CMAKE_UNITY_BUILD ${ORVELLE_UNITY})
set(CMAKE_UNITY_BUILD_BATCH_SIZE 16)

# orvelle_precompile(NAME HEADERS...): compiles the standard library's and these headers once for the
# target. They save time and nothing else. Headers of the layer itself stay out, since they would
# lose warnings.
function(orvelle_precompile name)
    target_precompile_headers(${name} PRIVATE <algorithm> <chrono> <functional> <map> <memory>
        <optional> <set> <string> <string_view> <utility> <variant> <vector> ${ARGN})
endfunction()

# orvelle_layer(NAME SOURCES... ): one layer of the program as a static library.
function(orvelle_layer name)
    add_library(${name} STATIC ${ARGN})
    target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
    target_link_libraries(${name} PRIVATE orvelle_flags)
    orvelle_precompile(${name})
endfunction()
