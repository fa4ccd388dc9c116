/* Preloaded into a program, makes chosen calls of the system fail. VERIDANE_FAULTS holds rules,
 * with blanks between them: CALL:MARKER:EFFECT. A rule holds for every path with the marker in it.
 *
 *   CALL     open, read, list, stat, write, sync, rename or close
 *   EFFECT   a number: the call fails with that errno; with EINTR only every second time, as a call
 *            that is repeated goes well in the end
 *            "short": a read or write moves one byte at most
 *            "!" and a number: raises that signal and is interrupted from then on
 *
 * The rule clock::SECONDS moves the wall clock forth and, at the next look, as far back. */

#define _GNU_SOURCE /* RTLD_NEXT, preadv2, openat2 */

#include <dirent.h>
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <signal.h>
#include <stdarg.h>
#include <stdatomic.h>
#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <time.h>
#include <unistd.h>

/* The next definition of the enclosing function, which is the C library's. */
#define REAL(type, name) ((type)(uintptr_t)dlsym(RTLD_NEXT, name))

static atomic_uint calls;

/* The text behind "CALL:" of the first rule for that call whose marker is in the path. */
static const char* effect_of(const char* call, const char* path) {
    const char* rule = getenv("VERIDANE_FAULTS");
    const size_t length = strlen(call);
    for (; rule; rule = strchr(rule, ' ')) {
        rule += strspn(rule, " ");
        if (strncmp(rule, call, length) != 0 || rule[length] != ':')
            continue;
        char marker[64] = "";
        const char* start = rule + length + 1;
        const char* end = strchr(start, ':');
        if (!end || end - start >= (ptrdiff_t)sizeof marker)
            continue;
        memcpy(marker, start, (size_t)(end - start));
        if (strstr(path, marker))
            return end + 1;
    }
    return NULL;
}

/* Whether the call fails, with errno set. `size` is what it may move at most, if it moves bytes. */
static bool fails(const char* call, const char* path, size_t* size) {
    const int before = errno;
    const char* effect = effect_of(call, path);
    errno = before;
    if (!effect)
        return false;
    if (strncmp(effect, "short", 5) == 0) {
        if (size && *size > 1)
            *size = 1;
        return false;
    }
    int error = atoi(effect + (*effect == '!'));
    if (*effect == '!') {
        static atomic_bool is_raised;
        if (!atomic_exchange(&is_raised, true))
            kill(getpid(), error);
        error = EINTR;
    } else if (error == EINTR && atomic_fetch_add(&calls, 1) % 2 == 1) {
        return false;
    }
    errno = error;
    return true;
}

static bool fails_at(const char* call, int folder, const char* name, size_t* size) {
    const int before = errno;
    char path[2 * PATH_MAX + 64] = "";
    if (folder != AT_FDCWD && name[0] != '/') {
        char link[64];
        snprintf(link, sizeof link, "/proc/self/fd/%d", folder);
        const ssize_t length = readlink(link, path, PATH_MAX);
        path[length > 0 ? length : 0] = '\0';
        strcat(path, "/");
    }
    strncat(path, name, PATH_MAX);
    errno = before;
    return fails(call, path, size);
}

static bool fails_on(const char* call, int file, size_t* size) {
    return fails_at(call, file, "", size);
}

static mode_t mode_behind(int flags, va_list arguments) {
    return flags & (O_CREAT | (O_TMPFILE & ~O_DIRECTORY)) ? va_arg(arguments, mode_t) : 0;
}

#define OPEN(name)                                                                                 \
    int name(const char* path, int flags, ...) {                                                   \
        va_list arguments;                                                                         \
        va_start(arguments, flags);                                                                \
        const mode_t mode = mode_behind(flags, arguments);                                         \
        va_end(arguments);                                                                         \
        if (fails_at("open", AT_FDCWD, path, NULL))                                                \
            return -1;                                                                             \
        return REAL(int (*)(const char*, int, ...), #name)(path, flags, mode);                     \
    }
OPEN(open)
OPEN(open64)

#define OPENAT(name)                                                                               \
    int name(int folder, const char* path, int flags, ...) {                                       \
        va_list arguments;                                                                         \
        va_start(arguments, flags);                                                                \
        const mode_t mode = mode_behind(flags, arguments);                                         \
        va_end(arguments);                                                                         \
        if (fails_at("open", folder, path, NULL))                                                  \
            return -1;                                                                             \
        return REAL(int (*)(int, const char*, int, ...), #name)(folder, path, flags, mode);        \
    }
OPENAT(openat)
OPENAT(openat64)

/* What a hardened program calls in their place where nothing is created. */
#define CHECKED_OPEN(name)                                                                         \
    int name(const char* path, int flags) {                                                        \
        if (fails_at("open", AT_FDCWD, path, NULL))                                                \
            return -1;                                                                             \
        return REAL(int (*)(const char*, int), #name)(path, flags);                                \
    }
CHECKED_OPEN(__open_2)
CHECKED_OPEN(__open64_2)

#define CHECKED_OPENAT(name)                                                                       \
    int name(int folder, const char* path, int flags) {                                            \
        if (fails_at("open", folder, path, NULL))                                                  \
            return -1;                                                                             \
        return REAL(int (*)(int, const char*, int), #name)(folder, path, flags);                   \
    }
CHECKED_OPENAT(__openat_2)
CHECKED_OPENAT(__openat64_2)

/* Of the calls without a function of their own only openat2 is of interest. */
long syscall(long number, ...) {
    long values[6];
    va_list arguments;
    va_start(arguments, number);
    for (size_t i = 0; i < 6; ++i)
        values[i] = va_arg(arguments, long);
    va_end(arguments);
    if (number == SYS_openat2 &&
        fails_at("open", (int)values[0], (const char*)(uintptr_t)values[1], NULL))
        return -1;
    return REAL(long (*)(long, ...), "syscall")(number, values[0], values[1], values[2], values[3],
                                                values[4], values[5]);
}

ssize_t read(int file, void* buffer, size_t size) {
    if (fails_on("read", file, &size))
        return -1;
    return REAL(ssize_t(*)(int, void*, size_t), "read")(file, buffer, size);
}

#define PREAD(name)                                                                                \
    ssize_t name(int file, void* buffer, size_t size, off_t offset) {                              \
        if (fails_on("read", file, &size))                                                         \
            return -1;                                                                             \
        return REAL(ssize_t(*)(int, void*, size_t, off_t), #name)(file, buffer, size, offset);     \
    }
PREAD(pread)
PREAD(pread64)

ssize_t __read_chk(int file, void* buffer, size_t size, size_t room) {
    if (fails_on("read", file, &size))
        return -1;
    return REAL(ssize_t(*)(int, void*, size_t, size_t), "__read_chk")(file, buffer, size, room);
}

#define CHECKED_PREAD(name)                                                                        \
    ssize_t name(int file, void* buffer, size_t size, off_t offset, size_t room) {                 \
        if (fails_on("read", file, &size))                                                         \
            return -1;                                                                             \
        return REAL(ssize_t(*)(int, void*, size_t, off_t, size_t), #name)(file, buffer, size,      \
                                                                          offset, room);           \
    }
CHECKED_PREAD(__pread_chk)
CHECKED_PREAD(__pread64_chk)

#define PREADV2(name)                                                                              \
    ssize_t name(int file, const struct iovec* parts, int count, off_t offset, int flags) {        \
        struct iovec first = parts[0];                                                             \
        if (fails_on("read", file, &first.iov_len))                                                \
            return -1;                                                                             \
        if (first.iov_len != parts[0].iov_len)                                                     \
            parts = &first, count = 1;                                                             \
        return REAL(ssize_t(*)(int, const struct iovec*, int, off_t, int),                         \
                    #name)(file, parts, count, offset, flags);                                     \
    }
PREADV2(preadv2)
PREADV2(preadv64v2)

ssize_t getdents64(int folder, void* buffer, size_t size) {
    if (fails_on("list", folder, NULL))
        return -1;
    return REAL(ssize_t(*)(int, void*, size_t), "getdents64")(folder, buffer, size);
}

int fstatat(int folder, const char* path, struct stat* status, int flags) {
    if (fails_at("stat", folder, path, NULL))
        return -1;
    return REAL(int (*)(int, const char*, struct stat*, int), "fstatat")(folder, path, status,
                                                                         flags);
}

int fstat(int file, struct stat* status) {
    if (fails_on("stat", file, NULL))
        return -1;
    return REAL(int (*)(int, struct stat*), "fstat")(file, status);
}

ssize_t write(int file, const void* buffer, size_t size) {
    if (fails_on("write", file, &size))
        return -1;
    return REAL(ssize_t(*)(int, const void*, size_t), "write")(file, buffer, size);
}

int fsync(int file) {
    return fails_on("sync", file, NULL) ? -1 : REAL(int (*)(int), "fsync")(file);
}

int rename(const char* from, const char* to) {
    if (fails("rename", to, NULL))
        return -1;
    return REAL(int (*)(const char*, const char*), "rename")(from, to);
}

/* Closes all the same, as Linux does. */
int close(int file) {
    const bool is_failing = fails_on("close", file, NULL);
    const int error = errno;
    const int result = REAL(int (*)(int), "close")(file);
    if (!is_failing)
        return result;
    errno = error;
    return -1;
}

int clock_gettime(clockid_t clock, struct timespec* time) {
    const int result = REAL(int (*)(clockid_t, struct timespec*), "clock_gettime")(clock, time);
    const char* seconds = clock == CLOCK_REALTIME ? effect_of("clock", "") : NULL;
    if (result == 0 && seconds)
        time->tv_sec += atomic_fetch_add(&calls, 1) % 2 == 0 ? atoll(seconds) : -atoll(seconds);
    return result;
}
