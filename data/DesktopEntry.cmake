# Run at the installation, which alone knows the prefix: the desktop entry names the installed
# program by its path, since the folder of a prefix need not be one that programs are found in.
set(VANTREL "${CMAKE_INSTALL_PREFIX}/${vantrel_bindir}/vantrel")
if(VANTREL MATCHES "[^A-Za-z0-9/._+-]")
  set(VANTREL "\"${VANTREL}\"")
endif()
configure_file("${CMAKE_CURRENT_LIST_DIR}/org.vantrel.Vantrel.desktop.in"
  "${vantrel_installed_entry}" @ONLY)
