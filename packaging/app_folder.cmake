# Fills the program's own folder with what is not built: cmake -DFOLDER=... -DFONT=... -P app_folder.cmake
#
# What belongs to the user is made once and never touched again: config.def and all of WORKSPACE.
file(MAKE_DIRECTORY ${FOLDER}/resource ${FOLDER}/WORKSPACE ${FOLDER}/fonts)

# One byte, the video mode: a window of 960 x 720.
if(NOT EXISTS ${FOLDER}/config.def)
  file(WRITE ${FOLDER}/config.def "3")
endif()

# The font that stands in when the user's is gone. Its licence goes where it goes.
file(COPY_FILE ${FONT} ${FOLDER}/fonts/system.ttf ONLY_IF_DIFFERENT)
set(licence /usr/share/doc/fonts-dejavu-core/copyright)
if(EXISTS ${licence})
  file(COPY_FILE ${licence} ${FOLDER}/fonts/system.txt ONLY_IF_DIFFERENT)
endif()
