# SPDX-License-Identifier: MIT
# Fills the program's own folder with what is not built: cmake -DFOLDER=... -DDEFAULTS=... -P app_folder.cmake
#
# What belongs to the user is made once and never touched again: config.def, user.def and all of WORKSPACE.
file(MAKE_DIRECTORY ${FOLDER}/resource ${FOLDER}/WORKSPACE ${FOLDER}/fonts)

# One byte, the video mode: a window of 960 x 720.
if(NOT EXISTS ${FOLDER}/config.def)
  file(WRITE ${FOLDER}/config.def "3")
endif()

# Settings and workspace of a first start; a folder in which anything lies is the user's.
if(NOT EXISTS ${FOLDER}/resource/user.def)
  file(COPY ${DEFAULTS}/resource/user.def DESTINATION ${FOLDER}/resource)
endif()
file(GLOB work ${FOLDER}/WORKSPACE/*)
if(NOT work)
  file(COPY ${DEFAULTS}/WORKSPACE DESTINATION ${FOLDER})
endif()
