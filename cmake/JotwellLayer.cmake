# Flags that every target of the project shares, and the one way to declare a layer.

add_library(JotwellFlags INTERFACE)
target_compile_options(JotwellFlags INTERFACE -Wall -Wextra -Wpedantic)
target_compile_definitions(JotwellFlags INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_STRICT_ITERATORS)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # g++ 12 sees uninitialised members in every std::optional that it inlines into a sort.
    target_compile_options(JotwellFlags INTERFACE -Wno-maybe-uninitialized)
endif()
if(JOTWELL_WARNINGS_AS_ERRORS)
    target_compile_options(JotwellFlags INTERFACE -Werror)
endif()
if(JOTWELL_SANITIZERS)
    target_compile_options(JotwellFlags INTERFACE
        -fsanitize=${JOTWELL_SANITIZERS} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(JotwellFlags INTERFACE -fsanitize=${JOTWELL_SANITIZERS})
    if(JOTWELL_SANITIZERS MATCHES "undefined" AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        # clang++ 14 can't assemble coroutines with this one check.
        target_compile_options(JotwellFlags INTERFACE -fno-sanitize=function)
    endif()
    if(JOTWELL_SANITIZERS STREQUAL "thread" AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # Qt's headers use fences, which it doesn't understand; none of ours stands on one.
        target_compile_options(JotwellFlags INTERFACE -Wno-tsan)
    endif()
endif()
if(JOTWELL_HARDENING)
    target_compile_options(JotwellFlags INTERFACE
        -fstack-protector-strong -fstack-clash-protection -fcf-protection -Wformat -Werror=format-security)
    target_compile_definitions(JotwellFlags INTERFACE _FORTIFY_SOURCE=2)
    target_link_options(JotwellFlags INTERFACE LINKER:-z,relro,-z,now)
    include(CheckPIESupported)
    check_pie_supported(LANGUAGES CXX)
    set(CMAKE_POSITION_INDEPENDENT_CODE ON)
endif()

# jotwell_layer(NAME SOURCES ... BELOW ...): a static library whose headers are included as
# "Layer/Name.h". It sees only the layers and libraries named after BELOW.
function(jotwell_layer name)
    cmake_parse_arguments(ARG "" "" "SOURCES;BELOW" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}/src")
    target_link_libraries(${name} PUBLIC ${ARG_BELOW} PRIVATE JotwellFlags)
endfunction()
