# Installs the build folder BUILD_DIR into the staging folder STAGE (prefix
# /usr) and checks what landed there: the file list, the desktop entry and
# AppStream data (validated by their tools), the document types as the MIME
# database reads them, and the icons' sizes.
cmake_minimum_required(VERSION 3.25)
set(id org.example.platewell)

function(fail)
  string(JOIN "" text ${ARGN})
  message(FATAL_ERROR "${text}")
endfunction()

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE code OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT code EQUAL 0)
    string(JOIN " " command ${ARGN})
    fail("${command} failed (${code}):\n${out}${err}")
  endif()
endfunction()

file(REMOVE_RECURSE ${STAGE})
run(${CMAKE_COMMAND} -E env DESTDIR=${STAGE} ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix /usr)

# The file list: everything under usr/, nothing elsewhere; the help file's
# pictures may follow it.
set(expected
  usr/bin/platewell
  usr/share/applications/${id}.desktop
  usr/share/metainfo/${id}.metainfo.xml
  usr/share/mime/packages/${id}.xml
  usr/share/icons/hicolor/scalable/apps/platewell.svg
  usr/share/platewell/data.dat
  usr/share/platewell/pw.hlp
  usr/share/platewell/tips.txt)
set(sides 16 22 24 32 48 64 128 256)
foreach(side ${sides})
  list(APPEND expected usr/share/icons/hicolor/${side}x${side}/apps/platewell.png)
endforeach()
file(GLOB_RECURSE installed LIST_DIRECTORIES false RELATIVE ${STAGE} ${STAGE}/*)
list(FILTER installed EXCLUDE REGEX "^usr/share/platewell/help/")
list(SORT installed)
list(SORT expected)
if(NOT installed STREQUAL expected)
  string(REPLACE ";" "\n  " got "${installed}")
  string(REPLACE ";" "\n  " want "${expected}")
  fail("installed files:\n  ${got}\nexpected:\n  ${want}")
endif()

set(share ${STAGE}/usr/share)
run(desktop-file-validate ${share}/applications/${id}.desktop)
run(appstreamcli validate --no-net --pedantic ${share}/metainfo/${id}.metainfo.xml)

# Every document type the desktop entry opens is one the MIME database now
# knows, under the globs of the two files.
run(update-mime-database ${share}/mime)
file(READ ${share}/mime/globs2 globs)
foreach(pair "application/x-platewell-analysis:\\*\\.pwl" "application/x-platewell-profile:\\*\\.pwp")
  if(NOT globs MATCHES ":${pair}\n")
    fail("the MIME database has no ${pair}:\n${globs}")
  endif()
endforeach()
file(READ ${share}/applications/${id}.desktop entry)
if(NOT entry MATCHES "\nMimeType=([^\n]+)\n")
  fail("the desktop entry opens no document type")
endif()
set(mime_types "${CMAKE_MATCH_1}")
file(READ ${share}/mime/types known_types)
foreach(type ${mime_types})
  if(type AND NOT known_types MATCHES "(^|\n)${type}\n")
    fail("the desktop entry opens ${type}, which the MIME database does not know")
  endif()
endforeach()
file(READ ${share}/mime/packages/${id}.xml mime_xml)
foreach(comment "Platewell analysis" "Platewell profile")
  string(FIND "${mime_xml}" "<comment>${comment}</comment>" at)
  if(at LESS 0)
    fail("no document type named \"${comment}\"")
  endif()
endforeach()

# Each PNG is as large as its folder says (the width and height of the IHDR
# chunk), and the SVG is a picture with a view box.
foreach(side ${sides})
  set(png ${share}/icons/hicolor/${side}x${side}/apps/platewell.png)
  file(READ ${png} header HEX LIMIT 24)
  string(SUBSTRING "${header}" 0 16 signature)
  string(SUBSTRING "${header}" 32 8 width_hex)
  string(SUBSTRING "${header}" 40 8 height_hex)
  math(EXPR width "0x${width_hex}")
  math(EXPR height "0x${height_hex}")
  if(NOT signature STREQUAL "89504e470d0a1a0a" OR NOT width EQUAL side OR NOT height EQUAL side)
    fail("${png} is ${width}x${height}, not ${side}x${side}")
  endif()
endforeach()
file(READ ${share}/icons/hicolor/scalable/apps/platewell.svg svg)
if(NOT svg MATCHES "<svg[^>]*viewBox=\"0 0 256 256\"" OR NOT svg MATCHES "Gradient")
  fail("platewell.svg is not the painted mark")
endif()
