# The resources of a program on Windows: version, icon, and the manifest for UTF-8, long paths and any screen
# resolution. Drawings become bitmaps, because the SVG plugin is not available.
find_program(MR4500X_ICON_RENDERER rsvg-convert REQUIRED)
find_program(MR4500X_ICON_MAKER icotool REQUIRED)

add_compile_definitions(UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00)
set(CMAKE_AUTORCC_OPTIONS --no-zstd) # the host's resource compiler would use a format that this Qt can't read
string(REPLACE . , MR4500X_VERSION_NUMBERS ${PROJECT_VERSION})

# mr4500x_windows_program(TARGET ABOUT SVG): ABOUT is the description in the properties of the file.
function(mr4500x_windows_program target about drawing)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/${target}-resources)
  file(MAKE_DIRECTORY ${folder})
  set(pictures "")
  foreach(size 16 24 32 48 64 256)
    set(picture ${folder}/${size}.png)
    add_custom_command(OUTPUT ${picture} DEPENDS ${drawing}
      COMMAND ${MR4500X_ICON_RENDERER} -w ${size} -h ${size} -o ${picture} ${drawing} VERBATIM)
    list(APPEND pictures ${picture})
  endforeach()
  add_custom_command(OUTPUT ${folder}/program.ico DEPENDS ${pictures}
    COMMAND ${MR4500X_ICON_MAKER} -c -o ${folder}/program.ico ${pictures} VERBATIM)
  set(MR4500X_PROGRAM ${target})
  set(MR4500X_PROGRAM_ABOUT ${about})
  configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/program.rc.in ${folder}/program.rc @ONLY)
  configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/program.manifest ${folder}/program.manifest COPYONLY)
  set_source_files_properties(${folder}/program.rc PROPERTIES OBJECT_DEPENDS ${folder}/program.ico)
  target_sources(${target} PRIVATE ${folder}/program.rc)
endfunction()

# mr4500x_drawn_resources(TARGET PREFIX SVG...): resources with the drawings' names, each as a bitmap.
function(mr4500x_drawn_resources target prefix)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/drawn)
  file(MAKE_DIRECTORY ${folder})
  set(list "<RCC>\n<qresource prefix=\"${prefix}\">\n")
  foreach(drawing ${ARGN})
    get_filename_component(name ${drawing} NAME_WE)
    set(picture ${folder}/${name}.png)
    add_custom_command(OUTPUT ${picture} DEPENDS ${drawing}
      COMMAND ${MR4500X_ICON_RENDERER} -w 96 -h 96 -o ${picture} ${drawing} VERBATIM)
    list(APPEND pictures ${picture})
    string(APPEND list "<file alias=\"${name}.svg\">${name}.png</file>\n")
  endforeach()
  file(CONFIGURE OUTPUT ${folder}/icons.qrc CONTENT "${list}</qresource>\n</RCC>\n")
  add_custom_target(${target}_pictures DEPENDS ${pictures})
  add_dependencies(${target} ${target}_pictures)
  set_target_properties(${target} PROPERTIES AUTOGEN_TARGET_DEPENDS "${pictures}")
  target_sources(${target} PRIVATE ${folder}/icons.qrc)
endfunction()
