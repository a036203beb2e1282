# SPDX-License-Identifier: MIT
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
set(KELU_EPOCH "${epoch}") # for what is packed; empty where nothing is known
string(TIMESTAMP KELU_BUILD_DATE "%Y-%m-%d" UTC)

# The day of the release, from the newest heading of CHANGELOG.md, "## 1.6 (2026-11-25)", which is held to the version
# of the project; and the same day as changelogs of packages write it.
file(STRINGS ${CMAKE_SOURCE_DIR}/CHANGELOG.md heading REGEX "^## " LIMIT_COUNT 1)
if(NOT heading MATCHES "^## ([0-9.]+) \\(([0-9]+-[0-9]+-[0-9]+)\\)$" OR NOT CMAKE_MATCH_1 STREQUAL PROJECT_VERSION)
  message(FATAL_ERROR "CHANGELOG.md begins with \"${heading}\", the project's version is ${PROJECT_VERSION}")
endif()
set(KELU_RELEASE_DATE ${CMAKE_MATCH_2})
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/CHANGELOG.md)
execute_process(COMMAND date -u -d ${KELU_RELEASE_DATE} "+%a, %d %b %Y %H:%M:%S +0000"
                OUTPUT_VARIABLE KELU_RELEASE_DAY OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
