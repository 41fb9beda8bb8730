# Built from the distribution's sources; utfcpp and zlib come ready from its packages.
set(third_party "${CMAKE_SOURCE_DIR}/build/third-party")

set(source_packages tinyxml minizip)
if(VELLUMBRIDGE_BENCHMARKS)
    list(APPEND source_packages benchmark)
endif()
execute_process(
    COMMAND "${CMAKE_SOURCE_DIR}/scripts/fetch-sources.sh" "${third_party}" ${source_packages}
    COMMAND_ERROR_IS_FATAL ANY)

# What others wrote is compiled without our warnings.
function(vbr_built_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;INCLUDES;DEFINITIONS;LINKS")
    add_library(vbr_${name} STATIC EXCLUDE_FROM_ALL ${arg_SOURCES})
    add_library(vbr::${name} ALIAS vbr_${name})
    target_compile_options(vbr_${name} PRIVATE -w)
    target_include_directories(vbr_${name} SYSTEM PUBLIC ${arg_INCLUDES})
    target_compile_definitions(vbr_${name} PUBLIC ${arg_DEFINITIONS})
    target_link_libraries(vbr_${name} PUBLIC ${arg_LINKS})
endfunction()

# A folder of links to single headers, since /usr/include itself holds this machine's C library.
set(headers "${CMAKE_BINARY_DIR}/third-party-headers")
file(MAKE_DIRECTORY "${headers}")
file(CREATE_LINK /usr/include/utf8cpp "${headers}/utfcpp" SYMBOLIC)
file(CREATE_LINK "${third_party}/minizip" "${headers}/minizip" SYMBOLIC)

add_library(vbr_utfcpp INTERFACE)
add_library(vbr::utfcpp ALIAS vbr_utfcpp)
target_include_directories(vbr_utfcpp SYSTEM INTERFACE "${headers}/utfcpp")

find_library(zlib_LIBRARY libz.a REQUIRED)
add_library(vbr_zlib INTERFACE)
add_library(vbr::zlib ALIAS vbr_zlib)
target_link_libraries(vbr_zlib INTERFACE ${zlib_LIBRARY})

vbr_built_library(
    tinyxml
    SOURCES "${third_party}/tinyxml/tinystr.cpp" "${third_party}/tinyxml/tinyxml.cpp"
            "${third_party}/tinyxml/tinyxmlerror.cpp" "${third_party}/tinyxml/tinyxmlparser.cpp"
    INCLUDES "${third_party}/tinyxml"
    DEFINITIONS TIXML_USE_STL)

vbr_built_library(
    minizip
    SOURCES "${third_party}/minizip/ioapi.c" "${third_party}/minizip/iowin32.c"
            "${third_party}/minizip/unzip.c" "${third_party}/minizip/zip.c"
    INCLUDES "${headers}"
    LINKS vbr::zlib)

if(VELLUMBRIDGE_TESTS)
    set(googletest /usr/src/googletest)
    vbr_built_library(
        gtest
        SOURCES "${googletest}/googletest/src/gtest-all.cc"
                "${googletest}/googlemock/src/gmock-all.cc"
                "${googletest}/googlemock/src/gmock_main.cc"
        INCLUDES "${googletest}/googletest/include" "${googletest}/googlemock/include")
    target_include_directories(vbr_gtest PRIVATE "${googletest}/googletest"
                                                 "${googletest}/googlemock")
    # It needs no speed, and optimising it takes longer than the tests run.
    target_compile_options(vbr_gtest PRIVATE -O0)
endif()

if(VELLUMBRIDGE_BENCHMARKS)
    file(GLOB benchmark_sources "${third_party}/benchmark/src/*.cc")
    list(FILTER benchmark_sources EXCLUDE REGEX "benchmark_main\\.cc$")
    vbr_built_library(
        benchmark
        SOURCES ${benchmark_sources}
        INCLUDES "${third_party}/benchmark/include"
        DEFINITIONS BENCHMARK_STATIC_DEFINE
        LINKS shlwapi)
    target_compile_definitions(vbr_benchmark PRIVATE HAVE_STD_REGEX HAVE_STEADY_CLOCK)
endif()
