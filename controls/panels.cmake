# Windows without a system frame, and the groups of push buttons.
target_sources(quillon_controls PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/FrameEdges.cpp
    ${CMAKE_CURRENT_LIST_DIR}/FramelessWindow.cpp
    ${CMAKE_CURRENT_LIST_DIR}/FramelessShadow.cpp
    ${CMAKE_CURRENT_LIST_DIR}/PushButtonGroups.h
    ${CMAKE_CURRENT_LIST_DIR}/PushButtonS1M15.cpp
    ${CMAKE_CURRENT_LIST_DIR}/PushButtons.h
    ${CMAKE_CURRENT_LIST_DIR}/TitleButton.cpp
    ${CMAKE_CURRENT_LIST_DIR}/group/ClickTiming.cpp
    ${CMAKE_CURRENT_LIST_DIR}/group/PanelCore.cpp
    ${CMAKE_CURRENT_LIST_DIR}/group/PanelFaces.cpp
    ${CMAKE_CURRENT_LIST_DIR}/group/PanelShape.cpp
    ${CMAKE_CURRENT_LIST_DIR}/group/PlateButton.cpp
    ${CMAKE_CURRENT_LIST_DIR}/group/PlateIcon.cpp
    ${CMAKE_CURRENT_LIST_DIR}/group/PlatePaint.cpp)
