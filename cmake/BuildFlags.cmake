# How everything here is compiled. Linked privately by every target of the project.

set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
# A library shows what is marked; a target that shows everything says so itself.
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

find_program(ccache ccache)
if(ccache)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${ccache})
endif()

add_library(quel_build_flags INTERFACE)
target_compile_features(quel_build_flags INTERFACE cxx_std_17)
target_compile_definitions(quel_build_flags INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH
    QT_DISABLE_DEPRECATED_BEFORE=0x050F00)
target_compile_options(quel_build_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual
    -Wold-style-cast -Wzero-as-null-pointer-constant
    $<$<CXX_COMPILER_ID:GNU>:-Wsuggest-override>
    # A string object handed to a function with "..." compiles without a word otherwise.
    $<$<CXX_COMPILER_ID:GNU>:-Werror=conditionally-supported>)
if(QUEL_WERROR)
    target_compile_options(quel_build_flags INTERFACE -Werror)
endif()
if(QUEL_SANITIZE)
    target_compile_options(quel_build_flags INTERFACE
        -fsanitize=${QUEL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(quel_build_flags INTERFACE -fsanitize=${QUEL_SANITIZE})
endif()
if(QUEL_FUZZ)
    target_compile_options(quel_build_flags INTERFACE -fsanitize=fuzzer-no-link)
    target_link_options(quel_build_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(QUEL_COVERAGE)
    target_compile_options(quel_build_flags INTERFACE --coverage -fprofile-update=atomic)
    target_link_options(quel_build_flags INTERFACE --coverage)
endif()
