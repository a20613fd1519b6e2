// What a sanitizer asks its program for, where it is built with one.

extern "C" {

// NOLINTBEGIN(bugprone-reserved-identifier): the names are the sanitizers' own.
const char* __asan_default_options();
const char* __lsan_default_suppressions();
const char* __tsan_default_options();

// Whole stacks: those through Qt are cut short otherwise, and the names below not found.
const char* __asan_default_options()
{
    return "fast_unwind_on_malloc=0";
}

// Qt Quick's software renderer keeps one texture, and its picture, of each image to the very end.
const char* __lsan_default_suppressions()
{
    return "leak:QQuickPixmap::load\n"
           "leak:QQuickWindowPrivate::syncSceneGraph\n";
}

// Qt's libraries are built without it: their locks can't be seen, and so not be judged.
const char* __tsan_default_options()
{
    return "ignore_noninstrumented_modules=1";
}

// NOLINTEND(bugprone-reserved-identifier)

} // extern "C"
