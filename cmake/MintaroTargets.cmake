# What every target of the tree has in common. Libraries are called mintaro_<folder> and link strictly downwards.

set(MINTARO_SANITIZE "" CACHE STRING "Sanitizers to build with, as -fsanitize takes them")

add_library(mintaro_options INTERFACE)
target_include_directories(mintaro_options INTERFACE "${PROJECT_SOURCE_DIR}/src")
target_compile_features(mintaro_options INTERFACE cxx_std_20)
target_compile_options(mintaro_options INTERFACE
    -Wall -Wextra -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual -Wnull-dereference)
target_compile_definitions(mintaro_options INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_URL_CAST_FROM_STRING
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_STRICT_ITERATORS)
if(MINTARO_SANITIZE)
    add_compile_options(-fsanitize=${MINTARO_SANITIZE} -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${MINTARO_SANITIZE})
endif()

# mintaro_library(NAME SOURCES ... [LINKS ...] [PCH]): a static library of one folder. PCH adds the precompiled header,
# which pays from about eight sources on.
function(mintaro_library name)
    cmake_parse_arguments(arg "PCH" "" "SOURCES;LINKS" ${ARGN})
    add_library(${name} STATIC ${arg_SOURCES})
    target_link_libraries(${name} PUBLIC mintaro_options ${arg_LINKS})
    if(arg_PCH)
        target_precompile_headers(${name} PRIVATE "${PROJECT_SOURCE_DIR}/cmake/Precompiled.h")
    endif()
endfunction()
