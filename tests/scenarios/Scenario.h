#pragma once

#include <QStringList>

class KVApplication;

// A scenario runs inside the scenario program after it has constructed the
// application object in a bundle, and reports what it observes as key=value
// lines on standard output. Its return value is the program's exit code.
using ScenarioFunction = int (*)(KVApplication& app, const QStringList& arguments);

struct ScenarioRegistration
{
    ScenarioRegistration(const char* name, ScenarioFunction function);
};

void Report(const QString& key, const QString& value);
void Report(const QString& key, const QStringList& values);

#define KV_SCENARIO(name)                                                                          \
    static int name##_scenario(KVApplication& app, const QStringList& arguments);                  \
    static const ScenarioRegistration name##_registration(#name, &name##_scenario);                \
    static int name##_scenario(KVApplication& app, const QStringList& arguments)
