# CPack runs this on the staged tree. `strip` leaves the section in which the compiler names itself; Debian's own tools
# remove it, too.
foreach(file IN ITEMS bin/mireval lib/mireval/modules/libmireval-audio.so)
  execute_process(
    COMMAND strip --remove-section=.comment ${CPACK_TEMPORARY_DIRECTORY}/usr/${file}
    COMMAND_ERROR_IS_FATAL ANY)
endforeach()
