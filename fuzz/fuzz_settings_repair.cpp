// The repair of a settings file: the input is the file. Plain QSettings
// reads every key of the repaired file, prints it to a QDebug (asking what
// Qt's own code asks of a value) and writes it back without crashing,
// a second repair changes nothing, and the repair changed nothing but whole
// values, each now "@Invalid()".

#include "FuzzSupport.h"
#include "KVIniSyntax_p.h"
#include "KVSettingsCheck_p.h"

#include <QDebug>
#include <QFile>
#include <QGuiApplication>
#include <QSettings>

namespace {
// Every byte outside the values is the input's; each value is the input's
// or "@Invalid()".
bool OnlyValuesChanged(const QByteArray& input, const QByteArray& repaired)
{
    const QByteArray invalid = "@Invalid()";
    int in = 0;
    int out = 0;
    for (const KVIniSyntax::Value& value : KVIniSyntax::Values(input)) {
        const int before = value.from - in;
        if (input.mid(in, before) != repaired.mid(out, before))
            return false;
        out += before;
        const QByteArray original = input.mid(value.from, value.to - value.from);
        if (repaired.mid(out, original.size()) == original)
            out += original.size();
        else if (repaired.mid(out, invalid.size()) == invalid)
            out += invalid.size();
        else
            return false;
        in = value.to;
    }
    return input.mid(in) == repaired.mid(out);
}
} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    KVFuzz::MakeApplication<QGuiApplication>();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray input(reinterpret_cast<const char*>(data), int(size));
    const QByteArray repaired = KVSettingsCheck::Repaired(input);
    KVFuzz::Check(KVSettingsCheck::Repaired(repaired) == repaired,
                  "a second repair changes nothing");
    KVFuzz::Check(OnlyValuesChanged(input, repaired), "only damaged values change");

    const KVFuzz::InputFile file("repaired.ini", reinterpret_cast<const uint8_t*>(repaired.data()),
                                 size_t(repaired.size()));
    QSettings settings(file.Path(), QSettings::IniFormat);
    QString printed;
    for (const QString& key : settings.allKeys()) {
        const QVariant value = settings.value(key);
        QDebug(&printed) << value;
        settings.setValue(key, value);
    }
    settings.setValue(QStringLiteral("Fuzz/Written"), true);
    settings.sync();
    return 0;
}
