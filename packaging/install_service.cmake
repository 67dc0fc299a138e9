# The bus starts the program by its full path, which is known at the installation only.
cmake_path(APPEND CMAKE_INSTALL_PREFIX "${MIREVAL_BINDIR}" mireval OUTPUT_VARIABLE program)
cmake_path(ABSOLUTE_PATH program NORMALIZE)
# Installations to several places at the same time do not meet.
string(MD5 place "${program}")
set(service "${MIREVAL_SERVICES}/${place}/org.mireval.Mireval.service")
configure_file("${CMAKE_CURRENT_LIST_DIR}/org.mireval.Mireval.service.in" "${service}" @ONLY)
cmake_path(APPEND CMAKE_INSTALL_PREFIX "${MIREVAL_DATADIR}" dbus-1/services OUTPUT_VARIABLE folder)
file(INSTALL "${service}" DESTINATION "${folder}")
