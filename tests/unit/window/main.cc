#include <QLocale>
#include <cstdio>
#include <cstdlib>

#include <gtest/gtest.h>

#include "settings/start/WindowApplication.h"
#include "tests/unit/window/WindowTest.h"

int main(int count, char** values) {
  testing::InitGoogleTest(&count, values);
  QLocale::setDefault(QLocale::c());
  StartOptions options;
  options.isPicture = true;  // drawn off screen, and the same on every desktop
  options.webEngine = false;
  WindowApplication application(options, {"window_unit_test", "Tests", ""}, values);
  WindowTest::setRuntime(application.qml());
  const int status = RUN_ALL_TESTS();
  // A name that chooses none must not pass for a success.
  if (testing::UnitTest::GetInstance()->test_to_run_count() == 0) {
    std::fputs("There is no such test.\n", stderr);
    return EXIT_FAILURE;
  }
  return status;
}
