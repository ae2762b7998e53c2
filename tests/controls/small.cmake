foreach(what boxes smallcontrols)
    quillon_test(tst_${what} SOURCES ${CMAKE_CURRENT_LIST_DIR}/tst_${what}.cpp LIBS quillon_controls quillon_resources)
endforeach()
