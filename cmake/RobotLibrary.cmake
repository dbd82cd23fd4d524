# The robot maker's own library in the place of the one in this tree.
#
# TESSARAD_ROBOT_LIBRARY names its prefix, in which are expected
#   include/kor/veltrano/api2/*.h          a header per class, with the names used in this tree
#   lib/libkor_veltrano_api2.so or .a      the library, the shared one being preferred
# The result is the imported target kor_veltrano_api2, which everything links by that name. A static
# library that needs others can name them in TESSARAD_ROBOT_LIBRARY_LINK.

set(TESSARAD_ROBOT_LIBRARY_LINK "" CACHE STRING
    "What the robot maker's library has to be linked with, as a list")

set(robot_headers
    AnalogInputArray Bumper Camera CameraCapabilities Charger Com ComId ControllerInfo
    DigitalInputArray DigitalOutputArray DistanceSensorArray FestoolCharger LaserRangeFinder
    LaserRangeFinderReadings Odometry OmniDrive PowerManagement RelayArray shutdown)
if(NOT IS_DIRECTORY "${TESSARAD_ROBOT_LIBRARY}")
    message(FATAL_ERROR "TESSARAD_ROBOT_LIBRARY is no directory: ${TESSARAD_ROBOT_LIBRARY}")
endif()
foreach(header IN LISTS robot_headers)
    set(header_file "${TESSARAD_ROBOT_LIBRARY}/include/kor/veltrano/api2/${header}.h")
    if(NOT EXISTS "${header_file}")
        message(FATAL_ERROR "The robot library lacks a header: ${header_file}")
    endif()
endforeach()
set(robot_library_file "${TESSARAD_ROBOT_LIBRARY}/lib/libkor_veltrano_api2.so")
set(robot_library_kind SHARED)
if(NOT EXISTS "${robot_library_file}")
    set(robot_library_file "${TESSARAD_ROBOT_LIBRARY}/lib/libkor_veltrano_api2.a")
    set(robot_library_kind STATIC)
endif()
if(NOT EXISTS "${robot_library_file}")
    message(FATAL_ERROR
        "The robot library lacks its binary: neither libkor_veltrano_api2.so nor "
        "libkor_veltrano_api2.a is in ${TESSARAD_ROBOT_LIBRARY}/lib")
endif()

add_library(kor_veltrano_api2 ${robot_library_kind} IMPORTED GLOBAL)
set_target_properties(kor_veltrano_api2 PROPERTIES
    IMPORTED_LOCATION "${robot_library_file}"
    INTERFACE_INCLUDE_DIRECTORIES "${TESSARAD_ROBOT_LIBRARY}/include"
    INTERFACE_LINK_LIBRARIES "${TESSARAD_ROBOT_LIBRARY_LINK}")
message(STATUS "Robot library: ${robot_library_file}")
