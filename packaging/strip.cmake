# SPDX-License-Identifier: MIT
# The packed program without the sections that tell of the compiler; run by cpack on what it is about to pack.
file(GLOB_RECURSE programs "${CPACK_TEMPORARY_DIRECTORY}/usr/lib/kelu/kelu")
foreach(program ${programs})
  execute_process(COMMAND strip --remove-section=.comment --remove-section=.note ${program} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
