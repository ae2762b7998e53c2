foreach(what meters meterpictures diallaws dials slider faders)
    quillon_test(tst_${what} SOURCES ${CMAKE_CURRENT_LIST_DIR}/tst_${what}.cpp LIBS quillon_controls LABELS controls)
endforeach()
