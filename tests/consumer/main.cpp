// A stranger's program: it knows the installed headers and nothing else of us.
#include <scene/base/SC_Id.h>

#include <cstdio>

int main()
{
    const SC_Id id(42);
    std::printf("%s\n", id.AsString().toUtf8().constData());
    return id.AsString() == QString::fromLatin1("42") && SC_Id::nullSceneId().isNull() ? 0 : 1;
}
