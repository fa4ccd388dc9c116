/* Runs a program and writes what it cost to a file: processor time in user and system mode, time on
 * the clock (all in seconds) and the most memory that it held (KiB). A small program of its own,
 * because a child is said to have held at least as much as the process that started it. */

#define _GNU_SOURCE /* wait4 */

#include <stdio.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

static double seconds(struct timeval time) {
    return (double)time.tv_sec + (double)time.tv_usec / 1e6;
}

static double now(void) {
    struct timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return (double)time.tv_sec + (double)time.tv_nsec / 1e9;
}

int main(int argument_count, char** arguments) {
    if (argument_count < 3) {
        fputs("usage: bench-measure RESULT PROGRAM [ARGUMENT]...\n", stderr);
        return 2;
    }
    const double start = now();
    const pid_t child = fork();
    if (child == 0) {
        execvp(arguments[2], arguments + 2);
        perror(arguments[2]);
        _exit(127);
    }
    int status = 0;
    struct rusage usage;
    if (child < 0 || wait4(child, &status, 0, &usage) != child) {
        perror("bench-measure");
        return 1;
    }
    const double wall = now() - start;
    FILE* result = fopen(arguments[1], "w");
    if (result == NULL) {
        perror(arguments[1]);
        return 1;
    }
    fprintf(result, "%f %f %f %ld\n", seconds(usage.ru_utime), seconds(usage.ru_stime), wall,
            usage.ru_maxrss);
    fclose(result);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}
