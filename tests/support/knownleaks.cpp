// What the address sanitizer does not tell as leaks: what the font library and the toolkit's
// offscreen platform keep until the process ends.
#if defined(__SANITIZE_ADDRESS__)
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_options()
{
    return "print_suppressions=0";
}

extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig.so\nleak:libqoffscreen.so\nleak:QScreen::QScreen\n"
           "leak:QPlatformScreen::QPlatformScreen\nleak:handleScreenAdded\n";
}
#endif
