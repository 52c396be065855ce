# Translations the Qt way. translations/tavidlg_<lang>.ts hold every text of the library and the console;
#   cmake --build <build> --target tavi_lupdate
# brings them up to date with the sources (lupdate over the source tree), after which a translator
# fills them in (Qt Linguist, or by hand). The build turns them into .qm files and embeds those in the
# library and the console (tavi_embed_translations).
find_package(Qt6 REQUIRED COMPONENTS LinguistTools)

file(GLOB TAVI_TS_FILES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/translations/*.ts)

set(TAVI_LUPDATE_DIRS)
foreach(dir tavidlg console plugins)
  if(EXISTS ${PROJECT_SOURCE_DIR}/${dir})
    list(APPEND TAVI_LUPDATE_DIRS ${PROJECT_SOURCE_DIR}/${dir})
  endif()
endforeach()
# No source locations in the files: a moved line does not change a translation, and the files do not
# conflict each time the code around a text changes.
add_custom_target(tavi_lupdate
  COMMAND Qt6::lupdate -silent -extensions cpp,h,ui -locations none -no-obsolete ${TAVI_LUPDATE_DIRS}
          -ts ${TAVI_TS_FILES}
  WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
  COMMENT "Updating translations/*.ts from the sources"
  VERBATIM)

# Builds the .qm files for target and embeds them under the resource folder prefix
# (":/tavidlg/translations/tavidlg_de.qm").
function(tavi_embed_translations target prefix)
  set(qm_dir ${CMAKE_CURRENT_BINARY_DIR}/translations)
  set(qm_files)
  foreach(ts ${TAVI_TS_FILES})
    get_filename_component(name ${ts} NAME_WE)
    set(qm ${qm_dir}/${name}.qm)
    add_custom_command(OUTPUT ${qm}
      COMMAND ${CMAKE_COMMAND} -E make_directory ${qm_dir}
      COMMAND Qt6::lrelease -silent ${ts} -qm ${qm}
      DEPENDS ${ts} Qt6::lrelease
      VERBATIM)
    list(APPEND qm_files ${qm})
  endforeach()
  if(qm_files)
    qt_add_resources(${target} ${target}_translations PREFIX ${prefix} BASE ${qm_dir} FILES ${qm_files})
  endif()
endfunction()
