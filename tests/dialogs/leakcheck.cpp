// The toolkit's offscreen platform never frees its screen: leaks are looked for in other tests.
#if defined(__SANITIZE_ADDRESS__)
extern "C" __attribute__((visibility("default"))) const char* __asan_default_options()
{
    return "detect_leaks=0";
}
#endif
