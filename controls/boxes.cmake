# Message boxes, menus, combo boxes, battery.
target_sources(quillon_controls PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/BatteryS1M1.cpp
    ${CMAKE_CURRENT_LIST_DIR}/ComboBoxS1M2.cpp
    ${CMAKE_CURRENT_LIST_DIR}/ComboBoxS1M3.cpp
    ${CMAKE_CURRENT_LIST_DIR}/ConsoleQuestion.cpp
    ${CMAKE_CURRENT_LIST_DIR}/MenuS1M1.cpp
    ${CMAKE_CURRENT_LIST_DIR}/MessageBoxParts.cpp
    ${CMAKE_CURRENT_LIST_DIR}/MessageBoxS1M1.cpp
    ${CMAKE_CURRENT_LIST_DIR}/MessageBoxS2M1.cpp
    ${CMAKE_CURRENT_LIST_DIR}/MessageBoxS3M1.cpp
    ${CMAKE_CURRENT_LIST_DIR}/MessageBoxWidget.cpp
    ${CMAKE_CURRENT_LIST_DIR}/Popups.cpp
    ${CMAKE_CURRENT_LIST_DIR}/ToolButtonS1M1.cpp
    ${CMAKE_CURRENT_LIST_DIR}/battery/BatteryDrawStrategy.cpp
    ${CMAKE_CURRENT_LIST_DIR}/picker/ComboCore.cpp
    ${CMAKE_CURRENT_LIST_DIR}/picker/FlatToolButton.cpp
    ${CMAKE_CURRENT_LIST_DIR}/picker/PickerAccess.cpp)
