quillon_test(tst_frameless SOURCES ${CMAKE_CURRENT_LIST_DIR}/tst_frameless.cpp LIBS quillon_controls quillon_resources)
quillon_test(tst_groups SOURCES ${CMAKE_CURRENT_LIST_DIR}/tst_groups.cpp LIBS quillon_controls quillon_resources)
quillon_test(tst_artwork SOURCES ${CMAKE_CURRENT_LIST_DIR}/tst_artwork.cpp LIBS Qt6::Gui Qt6::Svg quillon_resources)
target_compile_definitions(tst_artwork PRIVATE QUILLON_SOURCES="${PROJECT_SOURCE_DIR}")
