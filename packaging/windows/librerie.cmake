# What Debian has no package of for the target, from its sources, and what the native build lends.
set(TABELLINO_OSPITE "" CACHE PATH "A finished native build, whose programs make the suite's data")
set(TABELLINO_SQLITE "" CACHE PATH "The folder of SQLite's sqlite3.c and sqlite3.h")
set(TABELLINO_GOOGLETEST /usr/src/googletest CACHE PATH "The folder of GoogleTest's sources")

enable_language(C RC)
add_library(tabellino_sqlite STATIC ${TABELLINO_SQLITE}/sqlite3.c)
target_include_directories(tabellino_sqlite SYSTEM PUBLIC ${TABELLINO_SQLITE})
target_compile_definitions(tabellino_sqlite PRIVATE
  SQLITE_OMIT_LOAD_EXTENSION SQLITE_THREADSAFE=1 SQLITE_DQS=0)
add_library(SQLite::SQLite3 ALIAS tabellino_sqlite)
set(ZLIB_USE_STATIC_LIBS ON)

if(TABELLINO_TESTS)
  set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
  set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
  add_subdirectory(${TABELLINO_GOOGLETEST} gtest EXCLUDE_FROM_ALL)
endif()

if(NOT TABELLINO_FINESTRE)
  return()
endif()
# The native resource compiler packs in a way that this Qt does not know.
set(SENZA_ZSTD --no-zstd)
set(E_SENZA_ZSTD ";--no-zstd")
# Here, where every folder sees it: a static Qt asks after its own parts wherever it is linked.
find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets PrintSupport)

# No plugin for drawings: under their names stand pictures, in all factors that a screen asks for.
# The faces that the program measures in are no part of the system.
set(FATTORI 1x 1.5x 2x 3x 4x)
set(DISEGNI_DIR ${CMAKE_BINARY_DIR}/disegni)
file(GLOB DISEGNI CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/app/risorse/*.svg)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${DISEGNI})
file(MAKE_DIRECTORY ${DISEGNI_DIR})
execute_process(COMMAND ${TABELLINO_OSPITE}/packaging/disegni ${DISEGNI_DIR} ${FATTORI} -- ${DISEGNI}
  COMMAND_ERROR_IS_FATAL ANY)
set(ELENCO)
foreach(disegno ${DISEGNI})
  get_filename_component(nome ${disegno} NAME_WE)
  foreach(fattore ${FATTORI})
    set(segno "@${fattore}")
    if(fattore STREQUAL "1x")
      set(segno)
    endif()
    string(APPEND ELENCO
      "    <file alias=\"${nome}${segno}.svg\">${DISEGNI_DIR}/${nome}${segno}.png</file>\n")
  endforeach()
endforeach()
set(DISEGNI_QRC ${DISEGNI_DIR}/tabellino.qrc)
file(CONFIGURE OUTPUT ${DISEGNI_QRC} @ONLY CONTENT
  "<RCC>\n  <qresource prefix=\"/\">\n@ELENCO@  </qresource>\n</RCC>\n")

set(CARATTERI "  <qresource prefix=\"/caratteri\">\n")
foreach(faccia Sans Mono)
  foreach(modo Regular Bold Italic BoldItalic)
    set(file Liberation${faccia}-${modo}.ttf)
    string(APPEND CARATTERI
      "    <file alias=\"${file}\">/usr/share/fonts/truetype/liberation/${file}</file>\n")
  endforeach()
endforeach()
string(APPEND CARATTERI "  </qresource>\n")
