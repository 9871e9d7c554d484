#include <QtGlobal>

// A shared library that is no Qt plug-in.

extern "C" Q_DECL_EXPORT int kv_plain_library_answer()
{
    return 42;
}
