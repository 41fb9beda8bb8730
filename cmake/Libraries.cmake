# The libraries of others, under the same names in both builds:
#   vbr::tinyxml vbr::utfcpp vbr::zlib vbr::minizip vbr::gtest (with GoogleMock and a main) vbr::benchmark
if(WIN32)
    include(LibrariesForWindows)
else()
    include(LibrariesNative)
endif()
