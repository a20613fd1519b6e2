// Preloaded into the program: a user whose share of the system's inotify instances is used up.

#include <cerrno>

extern "C" int inotify_init1(int /*flags*/)
{
    errno = EMFILE;
    return -1;
}
