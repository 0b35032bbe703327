#pragma once

#include "tests/support/testcase.h"
#include "tests/support/virtualtime.h"

#include <QtTest>

/// A test class of a test program. A program holds those of one folder, so that they are linked
/// once; its first argument names the file of the class to run ("tst_plot"), the others are
/// Qt Test's. Every run is a process of its own: no class sees what another one has left behind.
class RegisteredTest
{
public:
    using Run = int (*)(int argc, char* argv[]);

    /// `sourceFile` as __FILE__ gives it. Static objects only: there is no taking back.
    RegisteredTest(const char* sourceFile, Run run);
};

/// An application object under which time passes only when the test lets it.
template <typename Application>
class InVirtualTime
{
public:
    InVirtualTime(int& argc, char** argv)
        : m_time(VirtualTime::install())
        , m_application(argc, argv)
    {
    }

private:
    VirtualTime* m_time; // installed before the application is made, which then owns it
    Application m_application;
};

template <typename TestClass, typename Application>
int runTest(int argc, char* argv[])
{
    [[maybe_unused]] const Application application(argc, argv);
    TestClass test;
    return QTest::qExec(&test, argc, argv);
}

/// Stands at the end of the file of a test class, in place of QTEST_MAIN. The application is one of
/// QCoreApplication, QGuiApplication, QApplication, or one InVirtualTime<>.
#define REGISTER_TEST(TestClass, ...)                                                              \
    static const RegisteredTest registered##TestClass(__FILE__, runTest<TestClass, __VA_ARGS__>);
