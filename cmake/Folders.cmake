# A folder of src/ is a library, vbr_<folder>, and where it has hands for Windows a second one,
# vbr_<folder>_win32. The folders that it uses are declared once, in front of it: they are what its
# libraries link, and with what these use in turn all that its files may include.

# The folder's own name and those of all that it may include, as a global property.
function(vbr_declare_arrows folder)
    set(allowed ${folder})
    foreach(used IN LISTS ARGN)
        get_property(known GLOBAL PROPERTY VBR_ARROWS_${used} SET)
        if(NOT known)
            message(FATAL_ERROR "src/${folder} uses src/${used}, which is not declared in front of it.")
        endif()
        get_property(more GLOBAL PROPERTY VBR_ARROWS_${used})
        list(APPEND allowed ${more})
    endforeach()
    list(REMOVE_DUPLICATES allowed)
    set_property(GLOBAL PROPERTY VBR_ARROWS_${folder} ${allowed})
endfunction()

# Has the build fail when the folder's files include what they may not; `checked` names the file to
# depend on.
function(vbr_check_includes checked folder)
    get_property(allowed GLOBAL PROPERTY VBR_ARROWS_${folder})
    list(JOIN allowed "|" allowed)
    set(stamp "${CMAKE_CURRENT_BINARY_DIR}/${folder}.includes")
    set(check "${CMAKE_SOURCE_DIR}/cmake/CheckIncludes.cmake")
    file(GLOB_RECURSE files CONFIGURE_DEPENDS ${folder}/*.h ${folder}/*.cpp)
    add_custom_command(
        OUTPUT "${stamp}"
        COMMAND "${CMAKE_COMMAND}" -D "source=${CMAKE_CURRENT_SOURCE_DIR}" -D "folder=${folder}"
                -D "allowed=${allowed}" -P "${check}"
        COMMAND "${CMAKE_COMMAND}" -E touch "${stamp}"
        DEPENDS ${files} "${check}"
        COMMENT "Checking what src/${folder} includes"
        VERBATIM)
    set(${checked} "${stamp}" PARENT_SCOPE)
endfunction()

# vbr_folder(FOLDER USES folders LINKS libraries WIN32_LINKS libraries)
function(vbr_folder folder)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "USES;LINKS;WIN32_LINKS")
    vbr_declare_arrows(${folder} ${arg_USES})
    vbr_check_includes(checked ${folder})

    file(GLOB sources CONFIGURE_DEPENDS ${folder}/*.cpp)
    list(TRANSFORM arg_USES PREPEND vbr_ OUTPUT_VARIABLE links)
    vbr_library(vbr_${folder} SOURCES ${sources} ${checked} LINKS ${links} ${arg_LINKS})
    target_link_libraries(vellumbridge_core INTERFACE vbr_${folder})

    file(GLOB sources CONFIGURE_DEPENDS ${folder}/win32/*.cpp)
    list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
    if(NOT WIN32 OR NOT sources)
        return()
    endif()
    get_property(allowed GLOBAL PROPERTY VBR_ARROWS_${folder})
    set(links vbr_${folder})
    foreach(used IN LISTS allowed)
        if(TARGET vbr_${used}_win32)
            list(APPEND links vbr_${used}_win32)
        endif()
    endforeach()
    vbr_library(vbr_${folder}_win32 SOURCES ${sources} LINKS ${links} ${arg_WIN32_LINKS})
    target_link_libraries(vellumbridge_win32 INTERFACE vbr_${folder}_win32)
    # Half the time that such a file takes to compile goes into this header.
    if(folder STREQUAL "platform")
        target_precompile_headers(vbr_platform_win32 PRIVATE platform/win32/windows.h)
    else()
        target_precompile_headers(vbr_${folder}_win32 REUSE_FROM vbr_platform_win32)
    endif()
endfunction()
