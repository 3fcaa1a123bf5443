// fontconfig keeps its configuration and font patterns until the process
// ends and never frees them; LeakSanitizer is told to leave them alone.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig.so\n"; }
