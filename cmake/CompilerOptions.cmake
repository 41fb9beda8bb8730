# vbr::options carries what every target of our own is compiled and linked with.
add_library(vellumbridge_options INTERFACE)
add_library(vbr::options ALIAS vellumbridge_options)

find_package(Threads REQUIRED)
target_link_libraries(vellumbridge_options INTERFACE Threads::Threads)

set(warnings
    -Wall
    -Wextra
    -Wpedantic
    -Wconversion
    -Wshadow
    -Wnon-virtual-dtor
    -Woverloaded-virtual
    -Werror
    # Win32 structures are filled by name, their other members are meant to be zero.
    -Wno-missing-field-initializers
    # The optimiser of GCC 12 raises these falsely about std::string and std::optional.
    -Wno-restrict
    -Wno-error=array-bounds
    -Wno-error=dangling-pointer
    -Wno-error=free-nonheap-object
    -Wno-error=maybe-uninitialized
    -Wno-error=stringop-overflow
    -Wno-error=stringop-overread)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    # They are GCC's names.
    list(APPEND warnings -Wno-unknown-warning-option)
endif()
# Not for the resource compiler.
target_compile_options(vellumbridge_options INTERFACE "$<$<COMPILE_LANGUAGE:CXX>:${warnings}>")

if(VELLUMBRIDGE_SANITIZE)
    set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_compile_options(vellumbridge_options INTERFACE "$<$<COMPILE_LANGUAGE:CXX>:${sanitizers}>")
    target_compile_definitions(vellumbridge_options INTERFACE _GLIBCXX_ASSERTIONS)
    target_link_options(vellumbridge_options INTERFACE ${sanitizers})
endif()
if(VELLUMBRIDGE_SANITIZE_THREADS)
    target_compile_options(vellumbridge_options INTERFACE -fsanitize=thread -fno-omit-frame-pointer)
    target_link_options(vellumbridge_options INTERFACE -fsanitize=thread)
endif()
if(VELLUMBRIDGE_FUZZ)
    target_compile_options(vellumbridge_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

if(WIN32)
    target_compile_definitions(vellumbridge_options INTERFACE UNICODE _UNICODE)
    # For the libraries too: all that goes into one program must see the same Windows.
    add_compile_definitions(_WIN32_WINNT=0x0A00 WINVER=0x0A00)
    add_compile_options("$<$<COMPILE_LANGUAGE:C,CXX>:-ffunction-sections;-fdata-sections>")
    # Against what a fault could be used for: the stack's returns are watched, indirect jumps end at
    # marked places, and nothing lies at an address that can be known or is data and code at once.
    add_compile_options("$<$<COMPILE_LANGUAGE:C,CXX>:-fstack-protector-strong;-fcf-protection=full>")
    target_link_options(vellumbridge_options INTERFACE -static -fstack-protector-strong
                        -Wl,--gc-sections
                        -Wl,--dynamicbase,--nxcompat,--high-entropy-va)
endif()
