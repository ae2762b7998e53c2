# The fonts, cut from those of the system's packages (fonts-noto-core, fonts-noto-extra, fonts-noto-cjk, python3-fonttools).
# Without them the program is built all the same and falls back to the font of the desktop.
#
# Sets quillon_caption_font: the face that the artwork is lettered with; empty without one.

set(quillon_caption_font)
find_program(QUILLON_FONT_PYTHON NAMES python3 HINTS /usr/bin NO_CMAKE_ENVIRONMENT_PATH NO_SYSTEM_ENVIRONMENT_PATH)
if(NOT QUILLON_FONT_PYTHON)
    find_program(QUILLON_FONT_PYTHON NAMES python3 python)
endif()
set(font_tools_missing TRUE)
if(QUILLON_FONT_PYTHON)
    execute_process(COMMAND ${QUILLON_FONT_PYTHON} -c "import fontTools.subset" RESULT_VARIABLE font_tools_missing OUTPUT_QUIET ERROR_QUIET)
endif()
if(font_tools_missing)
    message(STATUS "Fonts: left out, python3-fonttools is not installed")
    return()
endif()

set(subset_fonts ${PROJECT_SOURCE_DIR}/tools/subset_fonts.py)
set(font_files)
set(font_list)

# quillon_font(OUTPUT SOURCE FACE latin|chinese)
function(quillon_font output source face kind)
    get_filename_component(stem ${source} NAME_WE)
    find_file(QUILLON_FONT_${stem} NAMES ${source}
        PATHS /usr/share/fonts PATH_SUFFIXES truetype/noto opentype/noto noto noto-cjk google-noto)
    if(NOT QUILLON_FONT_${stem})
        message(STATUS "Fonts: ${output} left out, ${source} is not installed")
        return()
    endif()
    set(to ${CMAKE_CURRENT_BINARY_DIR}/fonts/${output})
    add_custom_command(OUTPUT ${to}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_CURRENT_BINARY_DIR}/fonts
        COMMAND ${QUILLON_FONT_PYTHON} ${subset_fonts} ${QUILLON_FONT_${stem}} ${face} ${kind} ${to}
        DEPENDS ${subset_fonts} COMMENT "Cutting ${output}" VERBATIM)
    set(font_files ${font_files} ${to} PARENT_SCOPE)
    set(font_list "${font_list}<file alias=\"${output}\">fonts/${output}</file>\n" PARENT_SCOPE)
endfunction()

quillon_font(SourceHanSansCN-Bold.ttf NotoSansCJK-Bold.ttc 2 chinese)
set(quillon_caption_font ${font_files})
foreach(weight Bold ExtraBold ExtraLight Light Medium Regular)
    quillon_font(NotoSans-${weight}.ttf NotoSans-${weight}.ttf 0 latin)
endforeach()

if(font_files)
    file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/fonts.qrc
        CONTENT "<RCC><qresource prefix=\"/Font\">\n${font_list}</qresource></RCC>\n" @ONLY)
    quillon_embed(fonts ${CMAKE_CURRENT_BINARY_DIR}/fonts.qrc DEPENDS ${font_files})
    target_compile_definitions(quillon_resources PRIVATE QUILLON_FONTS)
endif()
