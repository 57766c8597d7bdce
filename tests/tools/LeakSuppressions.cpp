// Read by the leak sanitizer, where there is one: the same for the tests as lsan-suppressions.txt
// says for the program that they run.

extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions();

const char* __lsan_default_suppressions() { return "leak:libvorbis\n"; }
