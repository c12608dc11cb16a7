# Fails when a source outside the backend folders includes a header of a desktop toolkit, or of a
# backend. Arguments: SOURCES, the folder of the application's sources; LIBRARY, the folder of the
# localisation library.
cmake_policy(VERSION 3.25)

set(toolkit_headers
  "<Q[A-Za-z0-9]*[/>]"                       # <QWidget>, <QtCore/...>, <QDBusConnection>
  "<(qt?[a-z0-9_]+\\.h|private/q)"           # <qglobal.h>
  "\"(Q[A-Z]|Qt[A-Z]|ui_)"                   # "QWidget", "ui_Screen.h"
  "<(Foundation|AppKit|Cocoa|CoreFoundation|CoreGraphics|CoreText|ApplicationServices|Security|OSAKit)/"
  "<(objc|dispatch)/")
set(backend_headers "[\"</](Qt|AppKit)/")

file(GLOB_RECURSE sources "${SOURCES}/*.h" "${SOURCES}/*.cpp" "${SOURCES}/*.mm"
                          "${LIBRARY}/*.h" "${LIBRARY}/*.cpp")
list(FILTER sources EXCLUDE REGEX "/Platform/(Qt|AppKit)/")
if(NOT sources)
  message(FATAL_ERROR "no sources below \"${SOURCES}\" and \"${LIBRARY}\"")
endif()

set(found "")
foreach(source IN LISTS sources)
  set(patterns ${toolkit_headers})
  if(NOT source MATCHES "/main\\.(cpp|mm)$") # main alone chooses a backend
    list(APPEND patterns "${backend_headers}")
  endif()
  file(STRINGS "${source}" includes REGEX "^[ \t]*#[ \t]*(include|import)|^[ \t]*@import")
  foreach(include IN LISTS includes)
    foreach(pattern IN LISTS patterns)
      if(include MATCHES "${pattern}" OR include MATCHES "@import")
        list(APPEND found "${source}: ${include}")
        break()
      endif()
    endforeach()
  endforeach()
endforeach()

if(found)
  list(JOIN found "\n  " text)
  message(FATAL_ERROR "toolkit header above the backends:\n  ${text}")
endif()
list(LENGTH sources count)
message(STATUS "${count} sources without a toolkit header")
