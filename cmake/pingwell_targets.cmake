# How every target of the project is compiled, and the short forms in which the folders declare theirs.

add_library(pingwell_options INTERFACE)
target_compile_options(pingwell_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough
    -Wold-style-cast -Wcast-qual -Werror
    # What links libsecret is compiled with it, and only sources compiled alike can share the headers read once.
    -pthread
    # GCC 12 sees values in empty std::optionals.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
target_compile_definitions(pingwell_options INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH QT_USE_QSTRINGBUILDER
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)

# Tests are compiled more often than they run: they are not optimised.
add_library(pingwell_test_options INTERFACE)
target_compile_options(pingwell_test_options INTERFACE -O0)
target_link_libraries(pingwell_test_options INTERFACE pingwell_options)

if(PINGWELL_SANITIZE)
    add_compile_options(-fsanitize=${PINGWELL_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    # The library knows fences that this sanitizer doesn't; none of ours are needed for what it is to find.
    add_compile_options($<$<CXX_COMPILER_ID:GNU>:-Wno-tsan>)
    # Clang 14 cannot compile a coroutine with it.
    add_compile_options($<$<CXX_COMPILER_ID:Clang>:-fno-sanitize=function>)
    add_link_options(-fsanitize=${PINGWELL_SANITIZE})
endif()

# What the sanitizers are told at run time. The leak checker knows what Qt keeps; the thread sanitizer, that Qt and the
# libraries below it are built without it, so that it can't see the order which their own locks make.
set(pingwell_sanitizer_environment
    "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp"
    "TSAN_OPTIONS=ignore_noninstrumented_modules=1 die_after_fork=0 suppressions=${PROJECT_SOURCE_DIR}/tests/tsan.supp")

# The headers that nearly every source reads, read once. Without them (see the presets) a source that forgets an include
# does not build.
if(PINGWELL_PRECOMPILE)
    set(precompiled_headers
        <QDateTime> <QHash> <QJsonObject> <QList> <QObject> <QPointer> <QSet> <QString> <QStringList> <QUrl> <QVariant>
        <QCoro/QCoroTask> <algorithm> <chrono> <functional> <memory> <optional> <utility> <vector>)
    file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/precompiled.cpp CONTENT "// Nothing but the headers.\n")
    add_library(pingwell_precompiled OBJECT ${PROJECT_BINARY_DIR}/precompiled.cpp)
    target_link_libraries(pingwell_precompiled PRIVATE pingwell_options Qt6::Core QCoro6::Core)
    target_precompile_headers(pingwell_precompiled PRIVATE ${precompiled_headers})
    if(PINGWELL_BUILD_TESTS)
        add_library(pingwell_test_precompiled OBJECT ${PROJECT_BINARY_DIR}/precompiled.cpp)
        target_link_libraries(pingwell_test_precompiled PRIVATE pingwell_test_options Qt6::Core QCoro6::Core)
        target_precompile_headers(pingwell_test_precompiled PRIVATE ${precompiled_headers})
    endif()
endif()

# pingwell_library(<folder> SOURCES … LINKS …): the static library of one folder of src/. It sees its own folder and what
# it links, nothing else: an include against the direction of the arrows does not build.
function(pingwell_library folder)
    cmake_parse_arguments(arg "" "" "SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
    set(target pingwell_${folder})
    add_library(${target} STATIC ${arg_SOURCES})
    # Headers are included as "<folder>/<file>.h"; each folder is offered under that name by a link of its own, so that
    # a library reaches only the folders it links.
    set(offered ${PROJECT_BINARY_DIR}/include/${folder})
    file(MAKE_DIRECTORY ${offered})
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${offered}/${folder} SYMBOLIC)
    target_include_directories(${target} PUBLIC ${offered})
    target_link_libraries(${target} PUBLIC ${arg_LINKS} PRIVATE pingwell_options ${arg_PRIVATE_LINKS})
    if(PINGWELL_PRECOMPILE)
        target_precompile_headers(${target} REUSE_FROM pingwell_precompiled)
    endif()
endfunction()

# pingwell_test_target(<target> <PUBLIC|PRIVATE> <links>…): compiles a target of the tests as they all are.
function(pingwell_test_target target visibility)
    target_link_libraries(${target} ${visibility} Qt6::Test ${ARGN} PRIVATE pingwell_test_options)
    if(PINGWELL_PRECOMPILE)
        target_precompile_headers(${target} REUSE_FROM pingwell_test_precompiled)
    endif()
endfunction()

# pingwell_test(<name> SOURCES … LINKS …): one Qt Test executable, run by ctest without a display.
function(pingwell_test name)
    pingwell_test_program(${name} "offscreen" "${name}" ${ARGN})
endfunction()

# pingwell_bus_test(<name> [DISPLAY] SOURCES … LINKS …): one that runs on a session bus of its own, where nothing is
# started on demand; with DISPLAY, on an X server of its own too.
function(pingwell_bus_test name)
    cmake_parse_arguments(arg "DISPLAY" "" "" ${ARGN})
    set(command dbus-run-session --config-file=${PROJECT_SOURCE_DIR}/tools/desktop/session_bus.conf --
        $<TARGET_FILE:${name}>)
    if(arg_DISPLAY)
        pingwell_test_program(${name} "xcb" "xvfb-run;--auto-servernum;${command}" ${arg_UNPARSED_ARGUMENTS})
    else()
        pingwell_test_program(${name} "offscreen" "${command}" ${arg_UNPARSED_ARGUMENTS})
    endif()
endfunction()

# What the functions above have in common.
function(pingwell_test_program name qt_platform command)
    cmake_parse_arguments(arg "" "" "SOURCES;LINKS" ${ARGN})
    add_executable(${name} ${arg_SOURCES})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
    pingwell_test_target(${name} PRIVATE ${arg_LINKS})
    add_test(NAME ${name} COMMAND ${command})
    set_tests_properties(${name} PROPERTIES TIMEOUT 60 ENVIRONMENT
        "QT_QPA_PLATFORM=${qt_platform};QT_QUICK_BACKEND=software;TZ=UTC;LC_ALL=C.UTF-8;QT_FORCE_STDERR_LOGGING=1;${pingwell_sanitizer_environment}")
endfunction()
