# Puts the delivered data file beside the program unless one is already there.
if(NOT EXISTS "${DST}")
  file(COPY_FILE "${SRC}" "${DST}")
  message(STATUS "Data file made: ${DST}")
endif()
