# What every target of this tree shares: warnings, sanitizers, and the helpers that create targets.

add_library(tessarad_options INTERFACE)
target_compile_options(tessarad_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast -Woverloaded-virtual
    -Wnon-virtual-dtor)
target_compile_definitions(tessarad_options INTERFACE
    QT_NO_CAST_TO_ASCII QT_DEPRECATED_WARNINGS QT_NO_KEYWORDS)
target_link_libraries(tessarad_options INTERFACE Threads::Threads)

if(TESSARAD_SANITIZER STREQUAL "address")
    # vptr reports false positives in the HTTP library's headers.
    set(sanitizer_flags -fsanitize=address,undefined -fno-sanitize=vptr
        -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
elseif(TESSARAD_SANITIZER STREQUAL "thread")
    # The thread sanitizer knows no fences, of which Boost's headers hold some; the locks beside them
    # order what they order.
    set(sanitizer_flags -fsanitize=thread -fno-omit-frame-pointer -Wno-tsan)
elseif(TESSARAD_SANITIZER)
    message(FATAL_ERROR "TESSARAD_SANITIZER is '${TESSARAD_SANITIZER}': empty, address or thread")
endif()
target_compile_options(tessarad_options INTERFACE ${sanitizer_flags})
target_link_options(tessarad_options INTERFACE ${sanitizer_flags})

if(TESSARAD_SANITIZER STREQUAL "thread")
    add_library(tessarad_qt_mutexes STATIC ${PROJECT_SOURCE_DIR}/tests/tsan/QtMutexes.cpp)
    target_compile_options(tessarad_qt_mutexes PRIVATE ${sanitizer_flags})
    target_link_libraries(tessarad_options INTERFACE tessarad_qt_mutexes)
    target_link_options(tessarad_options INTERFACE
        LINKER:--wrap=_ZN6QMutex4lockEv LINKER:--wrap=_ZN6QMutex7tryLockEi
        LINKER:--wrap=_ZN6QMutex6unlockEv)
endif()

# tessarad_add_library(<name> SOURCES <files> [LINK <targets>]): one folder's static library.
# Headers that hold Q_OBJECT have a source of the same name, which is how moc finds them.
function(tessarad_add_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK")
    add_library(${name} STATIC ${arg_SOURCES})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_link_libraries(${name} PUBLIC ${arg_LINK} PRIVATE tessarad_options)
endfunction()

# tessarad_add_executable(<name> SOURCES <files> [LINK <targets>])
function(tessarad_add_executable name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINK")
    add_executable(${name} ${arg_SOURCES})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_link_libraries(${name} PRIVATE ${arg_LINK} tessarad_options)
endfunction()
