#include "Scenario.h"

#include <KVApplication.h>

// Loads the languages given, in order, and reports what the application shows then.
KV_SCENARIO(languages)
{
    for (const QString& code : arguments)
        Report("load:" + code, QString::number(app.LoadLanguage(code)));
    Report("language", app.GetLanguage());
    for (const char* code : {"en", "de", "ru", "sv", "fr", "pt"})
        Report(QStringLiteral("name:") + code, KVApplication::GetLanguageName(code));
    Report("qt", QCoreApplication::translate("QProgressDialog", "Cancel"));
    return 0;
}

// Runs theme steps in order: "store:<path>" writes the stored theme path,
// "set:<type>" calls SetApplicationTheme, "load" loads the theme and reports
// the result, the style sheet (line breaks as \n) and both theme answers.
KV_SCENARIO(theme)
{
    for (const QString& step : arguments) {
        const QString value = step.section(':', 1);
        if (step.startsWith("store:"))
            KVApplication::SetUserValue(KVApplication::ThemePath, value);
        else if (step.startsWith("set:"))
            KVApplication::SetApplicationTheme(KVApplication::ThemeType(value.toInt()));
        if (step != "load")
            continue;
        Report("load", QString::number(app.LoadTheme()));
        Report("sheet", app.styleSheet().replace('\n', QStringLiteral("\\n")));
        Report("theme", QString::number(app.GetTheme()));
        Report("stored", QString::number(KVApplication::GetApplicationTheme()));
    }
    return 0;
}
