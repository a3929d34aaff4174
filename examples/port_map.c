/*
 * Asks the driver process for its chips and ports, and shows what a caller sees when a request is refused and when the
 * driver process dies.
 *
 *     quillon-run -- port_map
 *
 * Exits with 0 when everything went as the comments below say.
 */
#define _POSIX_C_SOURCE 200809L

#include <dirent.h>
#include <pthread.h>
#include <sched.h>
#include <signal.h>
#include <stdbool.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/types.h>
#include <time.h>
#include <unistd.h>

#include "quillon/platform.h"
#include "quillon/swdrv.h"

static bool all_as_expected = true;

static const char *expect(bool condition, const char *as_expected, const char *otherwise)
{
    all_as_expected = all_as_expected && condition;
    return condition ? as_expected : otherwise;
}

static void stop_here(const char *reason)
{
    fprintf(stderr, "port_map: %s\n", reason);
    exit(EXIT_FAILURE);
}

/* ---- The ports and their places on the chips ---- */

struct port {
    uint32_t unit, port;
    uint32_t module_id, device_id, phy_port;
    bool way_back; /* the chips' numbers lead back to this port */
};

struct port_list {
    struct port *ports;
    size_t count;
};

/* False when the driver process refuses: there is no such port. */
static bool ask_for_port(uint32_t unit, uint32_t number, struct port *port)
{
    uint32_t unit_back = 0, port_back = 0;

    port->unit = unit;
    port->port = number;
    if (!DEV_SWDRV_PMGR_Logical2PhyDevicePortID(unit, number, &port->module_id, &port->device_id, &port->phy_port))
        return false;
    port->way_back =
        DEV_SWDRV_PMGR_Physical2LogicalPort(port->module_id, port->device_id, port->phy_port, &unit_back, &port_back) &&
        unit_back == unit && port_back == number;
    return true;
}

static void append(struct port_list *list, const struct port *port)
{
    struct port *grown = realloc(list->ports, (list->count + 1) * sizeof *grown);

    if (grown == NULL)
        stop_here("out of memory");
    list->ports = grown;
    list->ports[list->count++] = *port;
}

/* How large the stack is, nobody says: units and ports are numbered from 1, and the first refused one ends them. */
static struct port_list ask_for_all_ports(void)
{
    struct port_list list = {NULL, 0};
    struct port port;

    for (uint32_t unit = 1; ask_for_port(unit, 1, &port); unit++)
        for (uint32_t number = 1; ask_for_port(unit, number, &port); number++)
            append(&list, &port);
    return list;
}

static void print_port(const struct port *port)
{
    printf("%6u %5u %8u %7u %9u  %s", (unsigned)port->unit, (unsigned)port->port, (unsigned)port->module_id,
           (unsigned)port->device_id, (unsigned)port->phy_port, expect(port->way_back, "ok", "WRONG"));
}

/* The first half of the ports beside the second. */
static void print_ports(const struct port_list *list)
{
    const size_t rows = (list->count + 1) / 2;
    const char *const head = "  unit  port   module  device  physical  back";

    printf("%s   |%s\n", head, list->count > 1 ? head : "");
    for (size_t row = 0; row < rows; row++) {
        print_port(&list->ports[row]);
        if (rows + row < list->count) {
            printf("     |");
            print_port(&list->ports[rows + row]);
        }
        putchar('\n');
    }
}

static void show_ports(void)
{
    const unsigned chips = DEV_SWDRV_PMGR_GetLocalUnitChipsetNumber();
    struct port_list list = ask_for_all_ports();
    struct port absent;

    if (list.count == 0)
        stop_here("the driver process has no ports");
    printf("Switch chips of the local unit: %u%s\n", chips, expect(chips > 0, "", ", WRONG"));
    printf("Ports of the stack: %u\n\n", (unsigned)list.count);
    puts("Each port as its users number it (unit, port), its place on the chips (module id, device id, physical");
    puts("port), and whether the way back from there leads to it again:\n");
    print_ports(&list);
    putchar('\n');

    absent = list.ports[list.count - 1];
    absent.port++;
    printf("Port %u of unit %u, which is not there:  %s\n", (unsigned)absent.port, (unsigned)absent.unit,
           expect(!ask_for_port(absent.unit, absent.port, &absent), "refused", "WRONG, there is one"));
    free(list.ports);
}

static void show_leds(void)
{
    const uint8_t pattern[31] = {0xAA, 0x55};
    const uint32_t mode = 1;

    printf("LED pattern of 2 bytes:                 %s\n",
           expect(DEV_SWDRV_PMGR_SetPortForceLEDStatus(1, 1, pattern, 2, mode), "set", "WRONG, refused"));
    printf("LED pattern of 31 bytes:                %s\n",
           expect(!DEV_SWDRV_PMGR_SetPortForceLEDStatus(1, 1, pattern, sizeof pattern, mode),
                  "refused, 30 bytes are the most", "WRONG, set"));
}

/* ---- The death of the driver process ---- */

static pid_t driver_process(void)
{
    char path[4096];
    FILE *file;
    long pid = 0;

    snprintf(path, sizeof path, "%s/driver.pid", getenv("QUILLON_RUNTIME_DIR"));
    file = fopen(path, "r");
    if (file == NULL || fscanf(file, "%ld", &pid) != 1 || pid <= 0)
        stop_here("no driver process has left its number in QUILLON_RUNTIME_DIR");
    fclose(file);
    return (pid_t)pid;
}

struct waiting_call {
    int task_pipe[2]; /* carries the id of the thread that is about to call */
    unsigned chips;
};

static void *call_once(void *argument)
{
    struct waiting_call *call = argument;
    const uint32_t task = SYSFUN_TaskIdSelf();

    if (write(call->task_pipe[1], &task, sizeof task) == (ssize_t)sizeof task)
        call->chips = DEV_SWDRV_PMGR_GetLocalUnitChipsetNumber();
    return NULL;
}

/* 'S' asleep, 'T' stopped, ...; '?' for a task that is not there. */
static char state_of(pid_t process, const char *task)
{
    char path[64];
    char state = '?';
    FILE *file;

    snprintf(path, sizeof path, "/proc/%ld/task/%.20s/stat", (long)process, task);
    file = fopen(path, "r");
    if (file != NULL) {
        if (fscanf(file, "%*d (%*[^)]) %c", &state) != 1)
            state = '?';
        fclose(file);
    }
    return state;
}

/* A process stops task by task: the last ones may still answer for a moment. */
static bool has_stopped(pid_t process)
{
    char path[64];
    DIR *tasks;
    bool stopped = true;

    snprintf(path, sizeof path, "/proc/%ld/task", (long)process);
    tasks = opendir(path);
    if (tasks == NULL)
        stop_here("the driver process is not there");
    for (const struct dirent *task; (task = readdir(tasks)) != NULL;)
        if (task->d_name[0] != '.' && state_of(process, task->d_name) != 'T')
            stopped = false;
    closedir(tasks);
    return stopped;
}

/* A driver process that is stopped answers nobody: a call made now waits, and goes on waiting until it is killed. */
static void kill_driver_process_during_call(void)
{
    const pid_t driver = driver_process();
    struct waiting_call call = {{-1, -1}, 1};
    pthread_t thread;
    uint32_t task = 0;
    char task_name[16];

    if (kill(driver, SIGSTOP) != 0)
        stop_here("cannot stop the driver process");
    while (!has_stopped(driver))
        sched_yield();

    if (pipe(call.task_pipe) != 0 || pthread_create(&thread, NULL, call_once, &call) != 0 ||
        read(call.task_pipe[0], &task, sizeof task) != (ssize_t)sizeof task)
        stop_here("cannot make a call in a thread");
    snprintf(task_name, sizeof task_name, "%u", (unsigned)task);
    while (state_of(getpid(), task_name) != 'S')
        sched_yield();

    kill(driver, SIGKILL);
    pthread_join(thread, NULL);
    close(call.task_pipe[0]);
    close(call.task_pipe[1]);
    printf("The call returned %u%s.\n", call.chips, expect(call.chips == 0, "", ", WRONG"));
}

/* Of a clock that nobody sets. */
static time_t seconds_now(void)
{
    struct timespec now;

    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec;
}

/* A process may ask for the queue at any time; what it has attached to before stays valid in any case. */
static void wait_for_driver_process(void)
{
    const uint32_t main_queue = 24, mode = 1;
    const time_t end = seconds_now() + 30;
    void *handle;

    while (SYSFUN_GetMsgQ(main_queue, mode, &handle) != 0) {
        if (seconds_now() > end)
            stop_here("the driver process does not come back");
        sched_yield();
    }
}

static void show_death(void)
{
    unsigned chips;

    puts("\nNow the driver process is killed while a call waits for its reply. The library reports it:\n");
    kill_driver_process_during_call();
    puts("\nThe report names the function, its queue (24) and the platform's status (2: the driver process died), and");
    puts("dumps the stack of the calling task from /proc/<task>/ustack. Linux on a workstation has no such file, so");
    puts("that `cat` can only say so. quillon-run, too, has seen the death and starts the driver process again.");
    wait_for_driver_process();
    chips = DEV_SWDRV_PMGR_GetLocalUnitChipsetNumber();
    printf("The driver process is back: the next call of this same process returned %u%s.\n", chips,
           expect(chips > 0, "", ", WRONG"));
}

int main(void)
{
    /* The library's report and the `cat` that it runs write to one terminal: keep their order. */
    setvbuf(stdout, NULL, _IOLBF, BUFSIZ);
    if (getenv("QUILLON_RUNTIME_DIR") == NULL)
        stop_here("needs a driver process that it may kill: run it as `quillon-run -- port_map`");

    DEV_SWDRV_PMGR_InitiateProcessResource();
    show_ports();
    show_leds();
    show_death();
    return all_as_expected ? EXIT_SUCCESS : EXIT_FAILURE;
}
