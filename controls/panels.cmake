# Windows without a system frame, and the groups of push buttons.
target_sources(quillon_controls PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/FrameEdges.cpp
    ${CMAKE_CURRENT_LIST_DIR}/FramelessWindow.cpp
    ${CMAKE_CURRENT_LIST_DIR}/FramelessShadow.cpp
    ${CMAKE_CURRENT_LIST_DIR}/PushButtonGroupS1M11.cpp
    ${CMAKE_CURRENT_LIST_DIR}/PushButtonGroupS1M2.cpp
    ${CMAKE_CURRENT_LIST_DIR}/PushButtonGroupS1M9.cpp
    ${CMAKE_CURRENT_LIST_DIR}/TitleButton.cpp
    ${CMAKE_CURRENT_LIST_DIR}/group/ClickTiming.cpp
    ${CMAKE_CURRENT_LIST_DIR}/group/GroupCore.cpp
    ${CMAKE_CURRENT_LIST_DIR}/group/PlateButton.cpp
    ${CMAKE_CURRENT_LIST_DIR}/group/PlatePicture.cpp)
