# SPDX-License-Identifier: MIT

# The flags that every target of the program shares.
add_library(sablequill_flags INTERFACE)
target_compile_options(sablequill_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual)
target_compile_definitions(sablequill_flags INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH)
target_compile_options(sablequill_flags INTERFACE $<$<CONFIG:Release>:-ffunction-sections>)
target_link_options(sablequill_flags INTERFACE $<$<CONFIG:Release>:-Wl,--gc-sections>)
if(SABLEQUILL_WERROR)
    target_compile_options(sablequill_flags INTERFACE -Werror)
endif()
if(SABLEQUILL_SANITIZE)
    target_compile_options(sablequill_flags INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(sablequill_flags INTERFACE -fsanitize=address,undefined)
endif()
if(SABLEQUILL_FUZZ)
    target_compile_options(sablequill_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

# clang-tidy takes the nearest configuration: this one keeps it quiet about what moc writes.
if(CMAKE_CXX_CLANG_TIDY)
    file(WRITE "${CMAKE_BINARY_DIR}/.clang-tidy" "Checks: '-*,misc-misplaced-const'\n")
endif()

# sablequill_layer(<name> [HOT] SOURCES <file>... LINKS <target>... [PRIVATE_LINKS <target>...])
#
# One static library per layer. Its headers are visible only to the layers that link it, so that an
# include against the direction of the layers does not compile. A release optimizes a HOT layer, whose
# loops go over whole notes, for speed and the others for size: what they do once per event is paid
# for in pages that are read at the start and kept.
function(sablequill_layer name)
    cmake_parse_arguments(LAYER "HOT" "" "SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
    add_library(sablequill_${name} STATIC ${LAYER_SOURCES})
    set_target_properties(sablequill_${name} PROPERTIES AUTOMOC ON)
    target_include_directories(sablequill_${name} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}")
    target_link_libraries(sablequill_${name}
        PUBLIC sablequill_flags ${LAYER_LINKS}
        PRIVATE ${LAYER_PRIVATE_LINKS})
    if(NOT LAYER_HOT)
        target_compile_options(sablequill_${name} PRIVATE $<$<CONFIG:Release>:-Os>)
    endif()
endfunction()
