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

} // namespace KVTest

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
