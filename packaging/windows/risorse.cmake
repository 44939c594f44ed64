# What Windows asks of a program file: icons, version, manifest.
set(RISORSE_WINDOWS_DIR ${CMAKE_CURRENT_LIST_DIR})
set(RISORSE_WINDOWS_FATTE ${CMAKE_BINARY_DIR}/packaging/windows)
file(MAKE_DIRECTORY ${RISORSE_WINDOWS_FATTE})
find_program(ICOTOOL icotool REQUIRED)

# One icon file a drawing, drawn by the native build's program.
set(RISORSE_WINDOWS_ICONE)
foreach(disegno
    ${PROJECT_SOURCE_DIR}/src/app/risorse/tabellino.svg
    ${RISORSE_WINDOWS_DIR}/sen.svg
    ${RISORSE_WINDOWS_DIR}/sel.svg)
  get_filename_component(nome ${disegno} NAME_WE)
  set(cartella ${RISORSE_WINDOWS_FATTE}/${nome})
  set(lati 16 20 24 32 40 48 64 256)
  list(TRANSFORM lati REPLACE "(.+)" "${cartella}/\\1.png" OUTPUT_VARIABLE immagini)
  add_custom_command(
    OUTPUT ${RISORSE_WINDOWS_FATTE}/${nome}.ico
    COMMAND ${CMAKE_COMMAND} -E make_directory ${cartella}
    COMMAND ${TABELLINO_OSPITE}/packaging/disegni ${cartella} ${lati} -- ${disegno}
    COMMAND ${ICOTOOL} -c -o ${RISORSE_WINDOWS_FATTE}/${nome}.ico ${immagini}
    DEPENDS ${disegno}
    COMMENT "Icona ${nome}"
    VERBATIM)
  list(APPEND RISORSE_WINDOWS_ICONE ${RISORSE_WINDOWS_FATTE}/${nome}.ico)
endforeach()
add_custom_target(icone_windows DEPENDS ${RISORSE_WINDOWS_ICONE})

# risorse_windows(PROGRAM "What it is"): the program with icon, version and manifest.
function(risorse_windows PROGRAMMA DESCRIZIONE)
  set(ALTRE_ICONE)
  if(PROGRAMMA STREQUAL "tabellino")
    # The file types' icons, which the setup names by their order.
    set(ALTRE_ICONE "2 ICON \"sen.ico\"\n3 ICON \"sel.ico\"")
  endif()
  set(rc ${RISORSE_WINDOWS_FATTE}/${PROGRAMMA}.rc)
  configure_file(${RISORSE_WINDOWS_DIR}/programma.rc.in ${rc} @ONLY)
  configure_file(${RISORSE_WINDOWS_DIR}/programma.manifest ${RISORSE_WINDOWS_FATTE}/programma.manifest COPYONLY)
  set_source_files_properties(${rc} PROPERTIES
    LANGUAGE RC OBJECT_DEPENDS "${RISORSE_WINDOWS_ICONE};${RISORSE_WINDOWS_FATTE}/programma.manifest")
  target_sources(${PROGRAMMA} PRIVATE ${rc})
  target_include_directories(${PROGRAMMA} PRIVATE ${RISORSE_WINDOWS_FATTE})
  add_dependencies(${PROGRAMMA} icone_windows)
endfunction()
