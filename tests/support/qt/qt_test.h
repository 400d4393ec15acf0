// All tests of the toolkit's side are one program, so that the toolkit is linked once. Each file
// holds one test class and names it at its end; `qt_tests FILE` runs the class of FILE.cpp, and
// what follows goes to Qt Test, e.g. the name of one function. Every run is a process of its own.
#pragma once

#include <QApplication>
#include <QCoreApplication>
#include <QTest>

namespace parlorwire {

using QtTestMain = int (*)(int argc, char** argv);

// Notes what runs a file's class; `file` is its __FILE__.
struct QtTestFile {
  QtTestFile(const char* file, QtTestMain main);
};

template <class Application, class Test>
int RunQtTest(int argc, char** argv) {
  Application application(argc, argv);
  Application::setAttribute(Qt::AA_Use96Dpi);  // as Qt Test's own main does
  Test test;
  return QTest::qExec(&test, argc, argv);
}

}  // namespace parlorwire

// A class that has windows, and one that only needs an event loop. Files that are compiled as one
// need names of their own.
#define WINDOW_TEST(Test) QT_TEST(Test, QApplication, __COUNTER__)
#define EVENT_LOOP_TEST(Test) QT_TEST(Test, QCoreApplication, __COUNTER__)
#define QT_TEST(Test, Application, number) QT_TEST_FILE(Test, Application, number)
#define QT_TEST_FILE(Test, Application, number)                   \
  static const parlorwire::QtTestFile test_file##number(__FILE__, \
                                                        parlorwire::RunQtTest<Application, Test>);
