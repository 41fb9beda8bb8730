# The distribution's development packages as they are.

function(vbr_system_library name header library)
    find_path(${name}_INCLUDE ${header} REQUIRED)
    find_library(${name}_LIBRARY ${library} REQUIRED)
    add_library(vbr_${name} INTERFACE)
    add_library(vbr::${name} ALIAS vbr_${name})
    if(NOT ${name}_INCLUDE STREQUAL "/usr/include")
        target_include_directories(vbr_${name} SYSTEM INTERFACE ${${name}_INCLUDE})
    endif()
    target_link_libraries(vbr_${name} INTERFACE ${${name}_LIBRARY})
endfunction()

vbr_system_library(tinyxml tinyxml.h tinyxml)
target_compile_definitions(vbr_tinyxml INTERFACE TIXML_USE_STL)

vbr_system_library(zlib zlib.h z)

vbr_system_library(minizip minizip/unzip.h minizip)
target_link_libraries(vbr_minizip INTERFACE vbr::zlib)

find_path(utfcpp_INCLUDE utf8cpp/utf8.h REQUIRED)
add_library(vbr_utfcpp INTERFACE)
add_library(vbr::utfcpp ALIAS vbr_utfcpp)
target_include_directories(vbr_utfcpp SYSTEM INTERFACE ${utfcpp_INCLUDE}/utf8cpp)

if(VELLUMBRIDGE_TESTS)
    find_package(GTest REQUIRED)
    add_library(vbr_gtest INTERFACE)
    add_library(vbr::gtest ALIAS vbr_gtest)
    target_link_libraries(vbr_gtest INTERFACE GTest::gmock_main GTest::gmock GTest::gtest)
endif()

if(VELLUMBRIDGE_BENCHMARKS)
    find_package(benchmark REQUIRED)
    add_library(vbr_benchmark INTERFACE)
    add_library(vbr::benchmark ALIAS vbr_benchmark)
    target_link_libraries(vbr_benchmark INTERFACE benchmark::benchmark)
endif()
