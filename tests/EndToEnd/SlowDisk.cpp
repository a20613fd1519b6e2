// Preloaded into the program: a disk that takes its time.

#include <chrono>
#include <thread>

#include <dlfcn.h>

extern "C" int fsync(int descriptor)
{
    static const auto realFsync = reinterpret_cast<int (*)(int)>(dlsym(RTLD_NEXT, "fsync"));
    std::this_thread::sleep_for(std::chrono::seconds(1));
    return realFsync(descriptor);
}
