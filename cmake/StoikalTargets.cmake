option(STOIKAL_WERROR "Warnings are errors" ON)

# The one place for flags: every target of ours links this.
add_library(stoikal_flags INTERFACE)
target_compile_options(stoikal_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough -Wformat=2
  # With inlining GCC 12 sees null dereferences inside Qt's own headers that are not there.
  $<$<NOT:$<CONFIG:Release>>:-Wnull-dereference>
  # The compiler cache tells sources apart by what they read, their precompiled header too.
  $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>
  # Numbers are compared bit for bit: no fused multiply-add.
  -ffp-contract=off
  $<$<BOOL:${STOIKAL_WERROR}>:-Werror>)
target_compile_definitions(stoikal_flags INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS
  QT_DISABLE_DEPRECATED_BEFORE=0x060400)

# What is watched: our own code, not the tests, which compile three times as fast without.
add_library(stoikal_watch INTERFACE)
if(STOIKAL_SANITIZE)
  # GCC 12 sees null dereferences in instrumented code that are not there.
  target_compile_options(stoikal_watch INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer
    $<$<CXX_COMPILER_ID:GNU>:-Wno-null-dereference;-Wno-maybe-uninitialized>)
  target_compile_options(stoikal_watch INTERFACE $<$<BOOL:${STOIKAL_FUZZ}>:-fsanitize=fuzzer-no-link>)
  target_compile_definitions(stoikal_watch INTERFACE _GLIBCXX_ASSERTIONS)
  target_link_options(stoikal_watch INTERFACE -fsanitize=address,undefined)
endif()
if(STOIKAL_COVERAGE)
  target_compile_options(stoikal_watch INTERFACE --coverage)
  target_link_options(stoikal_watch INTERFACE --coverage)
endif()

# The headers that everybody includes are compiled once for the whole house.
set(empty ${CMAKE_BINARY_DIR}/empty.cpp)
if(NOT EXISTS ${empty})
  file(WRITE ${empty} "")
endif()
add_library(logic_headers OBJECT ${empty})
target_link_libraries(logic_headers PRIVATE Qt6::Core stoikal_flags stoikal_watch)
target_precompile_headers(logic_headers PRIVATE <QString> <QStringList> <QByteArray> <vector> <functional>)
add_library(windows_headers OBJECT ${empty})
target_link_libraries(windows_headers PRIVATE Qt6::Widgets Qt6::Network stoikal_flags stoikal_watch)
target_precompile_headers(windows_headers PRIVATE <QWidget> <QApplication> <QString> <QPainter> <QLabel> <vector> <functional>)

# A subsystem's logic: Qt Core at most.
function(stoikal_logic name)
  cmake_parse_arguments(arg "" "" "SOURCES;DEPENDS" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC Qt6::Core ${arg_DEPENDS} stoikal_flags PRIVATE stoikal_watch)
  target_precompile_headers(${name} REUSE_FROM logic_headers)
endfunction()

# A subsystem's windows. Its classes with signals are moc'ed.
function(stoikal_windows name)
  cmake_parse_arguments(arg "" "" "SOURCES;DEPENDS" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC Qt6::Widgets Qt6::Network ${arg_DEPENDS} stoikal_flags PRIVATE stoikal_watch)
  target_precompile_headers(${name} REUSE_FROM windows_headers)
endfunction()
