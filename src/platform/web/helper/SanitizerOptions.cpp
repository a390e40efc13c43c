// What an address sanitizer is not to mind: the browser frees some of its own objects by the name of a base class.
// The options of whoever started the saver do not get as far as here.
extern "C" const char* __asan_default_options()
{
    return "new_delete_type_mismatch=0";
}
