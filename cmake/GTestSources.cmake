# GoogleTest from its sources, for systems that Debian has no build of it for.
set(GUI_GTEST_SOURCES /usr/src/googletest CACHE PATH "Sources of GoogleTest")
add_library(gtest_all STATIC ${GUI_GTEST_SOURCES}/googletest/src/gtest-all.cc
                             ${GUI_GTEST_SOURCES}/googlemock/src/gmock-all.cc)
target_include_directories(
  gtest_all SYSTEM
  PUBLIC ${GUI_GTEST_SOURCES}/googletest/include ${GUI_GTEST_SOURCES}/googlemock/include
  PRIVATE ${GUI_GTEST_SOURCES}/googletest ${GUI_GTEST_SOURCES}/googlemock)
add_library(gtest_main STATIC ${GUI_GTEST_SOURCES}/googlemock/src/gmock_main.cc)
target_link_libraries(gtest_main PUBLIC gtest_all)

add_library(GTest::gtest ALIAS gtest_all)
add_library(GTest::gmock ALIAS gtest_all)
add_library(GTest::gtest_main ALIAS gtest_main)
