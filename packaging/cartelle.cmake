# Folders that an installation makes are everybody's, whatever the mask of the user who installs or
# packs; those that are there already keep their permissions. Installed files have fixed ones anyway.
include(GNUInstallDirs)

set(CARTELLE ${CMAKE_INSTALL_BINDIR} ${CMAKE_INSTALL_LIBEXECDIR}/tabellino ${CMAKE_INSTALL_MANDIR}/man1)
foreach(cartella applications metainfo doc/tabellino icons/hicolor/scalable/apps
    tabellino/ridotti tabellino/skin tabellino/archivio tabellino/cruciverba)
  list(APPEND CARTELLE ${CMAKE_INSTALL_DATADIR}/${cartella})
endforeach()
foreach(lato ${LATI})
  list(APPEND CARTELLE ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${lato}x${lato}/apps)
endforeach()
install(CODE "set(CARTELLE \"${CARTELLE}\")")
install(CODE [[
  function(apri cartella)
    if(NOT EXISTS ${cartella})
      get_filename_component(sopra ${cartella} DIRECTORY)
      apri(${sopra})
      file(MAKE_DIRECTORY ${cartella})
      file(CHMOD ${cartella} PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
        GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
    endif()
  endfunction()
  foreach(cartella ${CARTELLE})
    apri("$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}/${cartella}")
  endforeach()
]])
