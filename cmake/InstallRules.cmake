# Shared by the installation rules of several folders.

# Installs files that are not part of ALL. Fails if the target that makes them has not been built.
function(install_made_files target destination)
  install(CODE "
    set(files \"${ARGN}\")
    foreach(file IN LISTS files)
      if(NOT EXISTS \"\${file}\")
        message(FATAL_ERROR \"\${file} is missing; the target ${target} makes it\")
      endif()
    endforeach()")
  install(FILES ${ARGN} DESTINATION ${destination})
endfunction()
