# KELU_BUILD_DATE: the day of SOURCE_DATE_EPOCH where that is set, else of the newest commit, else today. So two builds
# of one commit tell the same. Looked at when the build is configured.
set(epoch "$ENV{SOURCE_DATE_EPOCH}")
if(NOT epoch)
  find_program(KELU_GIT git)
  mark_as_advanced(KELU_GIT)
  if(KELU_GIT)
    execute_process(COMMAND ${KELU_GIT} log -1 --format=%ct WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
                    OUTPUT_VARIABLE epoch OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  endif()
endif()
if(epoch)
  set(ENV{SOURCE_DATE_EPOCH} ${epoch})
endif()
string(TIMESTAMP KELU_BUILD_DATE "%Y-%m-%d" UTC)
