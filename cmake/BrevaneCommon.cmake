# Shared build settings: strict warnings, sanitizers and the folder walkers.

set(BREVANE_WARNINGS
  -Wall -Wextra -Wpedantic -Werror
  -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Wcast-align -Woverloaded-virtual
  -Wnull-dereference -Wimplicit-fallthrough -Wmisleading-indentation
  -Wduplicated-cond -Wlogical-op)

if(BREVANE_SANITIZE)
  string(REPLACE "," ";" _brevane_sanitizers "${BREVANE_SANITIZE}")
  foreach(_s IN LISTS _brevane_sanitizers)
    add_compile_options(-fsanitize=${_s})
    add_link_options(-fsanitize=${_s})
  endforeach()
  add_compile_options(-fno-omit-frame-pointer -fno-sanitize-recover=all)
endif()

# Applies the project's warnings to a target of ours (never to third-party code).
function(brevane_warnings target)
  target_compile_options(${target} PRIVATE ${BREVANE_WARNINGS})
endfunction()

function(brevane_add_subdirectory_if_present dir)
  if(EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${dir}/CMakeLists.txt")
    add_subdirectory(${dir})
  endif()
endfunction()

# Adds every direct subfolder of `dir` that has a CMakeLists.txt; a folder with a
# CMakeLists.txt of its own is added as a whole instead.
function(brevane_add_subdirectories dir)
  if(EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${dir}/CMakeLists.txt")
    add_subdirectory(${dir})
    return()
  endif()
  file(GLOB _children LIST_DIRECTORIES true RELATIVE "${CMAKE_CURRENT_SOURCE_DIR}/${dir}"
       "${CMAKE_CURRENT_SOURCE_DIR}/${dir}/*")
  list(SORT _children)
  foreach(_c IN LISTS _children)
    if(EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${dir}/${_c}/CMakeLists.txt")
      add_subdirectory(${dir}/${_c})
    endif()
  endforeach()
endfunction()

# A GoogleTest executable registered with CTest, one test per case.
#   brevane_gtest(NAME base_tests SOURCES a_test.cpp LIBS brevane_base)
function(brevane_gtest)
  cmake_parse_arguments(T "" "NAME" "SOURCES;LIBS" ${ARGN})
  add_executable(${T_NAME} ${T_SOURCES})
  brevane_warnings(${T_NAME})
  target_link_libraries(${T_NAME} PRIVATE ${T_LIBS} GTest::gtest GTest::gmock GTest::gtest_main)
  target_compile_definitions(${T_NAME} PRIVATE BREVANE_TREE_DIR="${BREVANE_TREE_DIR}")
  gtest_discover_tests(${T_NAME} DISCOVERY_TIMEOUT 120 TEST_PREFIX "${T_NAME}."
    PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen;SDL_AUDIODRIVER=dummy")
endfunction()

# A benchmark executable, built into build/bench/ where `make bench` finds it.
#   brevane_bench(NAME bench_mixer SOURCES mixer_bench.cpp LIBS brevane_engine)
function(brevane_bench)
  cmake_parse_arguments(B "" "NAME" "SOURCES;LIBS" ${ARGN})
  add_executable(${B_NAME} ${B_SOURCES})
  brevane_warnings(${B_NAME})
  target_link_libraries(${B_NAME} PRIVATE ${B_LIBS} benchmark::benchmark)
  set_target_properties(${B_NAME} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bench")
  target_compile_definitions(${B_NAME} PRIVATE BREVANE_TREE_DIR="${BREVANE_TREE_DIR}")
endfunction()
