#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>

// What the fuzz targets share. Files go to a scratch folder that lives in
// memory where the system has a RAM file system, so that QSaveFile's flush
// does not set the pace; it goes at exit.
namespace KVFuzz {

QString ScratchFolder();

// The input written to a file of the scratch folder, removed again with
// this object. The name is the same for every input, so that Qt's caches
// of files by path stay the size they are; the file's time stamp differs
// from every earlier input's instead, since QSettings takes a file of the
// same size and time stamp for the one that it parsed before.
class InputFile
{
public:
    InputFile(const QString& name, const uint8_t* data, size_t size);
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    QString Path() const { return m_path; }

private:
    QString m_path;
};

// The editor always has an application object, offscreen here, with HOME
// in the scratch folder. Made once and kept; parsing a setting may decode
// a pixmap, which needs one.
int& ApplicationArgc();
char** ApplicationArgv();
void PrepareApplication();
template <typename Application> void MakeApplication()
{
    PrepareApplication();
    new Application(ApplicationArgc(), ApplicationArgv());
}

// A broken promise of the code under test: reported, then the process
// aborts so that the fuzzer keeps the input.
void Check(bool condition, const char* what);

} // namespace KVFuzz
