// With KELVANE_TEST_DAY (YYYY-MM-DD) in the environment the whole process, with its database driver, lives on
// that day, at the true time of day. The functions take the place of the system's.

#ifdef __linux__

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

namespace {

timespec realTime(clockid_t clock) {
    timespec time{};
    syscall(SYS_clock_gettime, clock, &time);
    return time;
}

time_t secondsAhead() {
    const char* day = std::getenv("KELVANE_TEST_DAY");
    int year = 0;
    int month = 0;
    int dayOfMonth = 0;
    if (!day || std::sscanf(day, "%d-%d-%d", &year, &month, &dayOfMonth) != 3)
        return 0;
    const auto present = realTime(CLOCK_REALTIME).tv_sec;
    tm local{};
    localtime_r(&present, &local);
    local.tm_year = year - 1900;
    local.tm_mon = month - 1;
    local.tm_mday = dayOfMonth;
    local.tm_isdst = -1;
    return mktime(&local) - present;
}

timespec shownTime(clockid_t clock) {
    static const time_t ahead = secondsAhead();
    auto time = realTime(clock);
    if (clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE)
        time.tv_sec += ahead;
    return time;
}

} // namespace

extern "C" {

int clock_gettime(clockid_t clock, timespec* time) noexcept {
    *time = shownTime(clock);
    return 0;
}

int gettimeofday(timeval* time, void* /*zone*/) noexcept {
    const auto shown = shownTime(CLOCK_REALTIME);
    *time = {shown.tv_sec, shown.tv_nsec / 1000};
    return 0;
}

time_t time(time_t* seconds) noexcept {
    const auto shown = shownTime(CLOCK_REALTIME).tv_sec;
    if (seconds)
        *seconds = shown;
    return shown;
}
}

#endif
