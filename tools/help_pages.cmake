# SPDX-License-Identifier: MIT
# assets/help.txt as string literals, one a page: help_pages.inc, which src/gui/help_pages.cpp includes. The head of the
# text tells how it is written. Made when the build is configured, and anew when the text has changed.
set(help_text ${CMAKE_SOURCE_DIR}/assets/help.txt)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${help_text})
file(READ ${help_text} pages)

string(REGEX REPLACE "(^|\n);[^\n]*" "\\1" pages "${pages}")
string(REPLACE "\\" "\\\\" pages "${pages}")
string(REPLACE "\"" "\\\"" pages "${pages}")
string(REGEX REPLACE "`([^`\n]+)`" "|c39\\1|c40" pages "${pages}")

# A page's word "|" ends a line, so two of them leave a blank one. The breaks of the text become blanks at last.
string(REGEX REPLACE "\n+$" "" pages "${pages}")
string(REGEX REPLACE "\n\n+== ([^\n]+)" "\",<page>\"|c43\\1|c40" pages "${pages}")
string(REGEX REPLACE "\n\n+- " " | | - " pages "${pages}")
string(REGEX REPLACE "\n\n+" " | | " pages "${pages}")
string(REPLACE "\n- " " | - " pages "${pages}")
string(REPLACE "\n" " " pages "${pages}")
string(FIND "${pages}" "<page>" first_page)
string(SUBSTRING "${pages}" ${first_page} -1 pages)
string(REPLACE "<page>" "\n" pages "${pages}")
file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/generated/help_pages.inc CONTENT "${pages}\"\n" @ONLY)
