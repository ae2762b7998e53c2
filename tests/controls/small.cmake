quillon_test(tst_smallcontrols
    SOURCES ${CMAKE_CURRENT_LIST_DIR}/tst_smallcontrols.cpp
    LIBS quillon_controls)
