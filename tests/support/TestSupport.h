#pragma once

#include <QString>
#include <QtTest>

class KVApplication;

namespace KVTest {

// Gives this test process a throw-away HOME and the offscreen platform, and
// fails the process at exit if anything wrote the real application folder.
void PrepareProcess();

// A path inside the repository's source tree.
QString SourcePath(const QString& relative);

// The folder that the test process uses as HOME.
QString HomePath();

// Whether this process runs one test function for a parent test process.
bool IsChildProcess();

// Runs the current test function (and data row) again in a child process of
// this test program; an empty string when it passed, otherwise what went
// wrong: a failure, a crash, or no end within timeoutMs.
QString RunInChildProcess(int timeoutMs);

} // namespace KVTest

// Ends the current test function in the parent after running it in a child
// process, where it may hang or crash without taking the suite along; in
// the child the function goes on.
#define KV_IN_CHILD_PROCESS(timeoutMs)                                                             \
    if (!KVTest::IsChildProcess()) {                                                               \
        const QString failure = KVTest::RunInChildProcess(timeoutMs);                              \
        QVERIFY2(failure.isEmpty(), qPrintable(failure));                                          \
        return;                                                                                    \
    }

// main() for a suite that makes its own application objects (or none).
#define KV_TEST_MAIN(TestObject)                                                                   \
    int main(int argc, char** argv)                                                                \
    {                                                                                              \
        KVTest::PrepareProcess();                                                                  \
        TestObject test;                                                                           \
        return QTest::qExec(&test, argc, argv);                                                    \
    }

// main() for a suite that runs inside one KVApplication.
#define KV_TEST_APP_MAIN(TestObject)                                                               \
    int main(int argc, char** argv)                                                                \
    {                                                                                              \
        KVTest::PrepareProcess();                                                                  \
        int appArgc = 1;                                                                           \
        KVApplication app(appArgc, argv);                                                          \
        TestObject test;                                                                           \
        return QTest::qExec(&test, argc, argv);                                                    \
    }
