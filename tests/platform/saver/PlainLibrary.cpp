// A shared library that is no plug-in at all.
extern "C" int kestroPlainLibrary();

int kestroPlainLibrary()
{
    return 1;
}
