// Preloaded into a program, GLX has no driver in it: it knows no way to draw on any display.

extern "C" {

void* glXGetFBConfigs(void*, int, int* count)
{
    *count = 0;
    return nullptr;
}

void* glXChooseFBConfig(void*, int, const int*, int* count)
{
    *count = 0;
    return nullptr;
}

void* glXChooseVisual(void*, int, int*)
{
    return nullptr;
}

} // extern "C"
