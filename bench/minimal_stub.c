#include "minimal_stub.h"

#include <stdio.h>
#include <stdlib.h>

#include "quillon/platform.h"

struct header {
    uint32_t msg_type[2];
    uint16_t cmd;
    uint16_t msg_size;
    uint32_t reserved;
    uint32_t type;
    uint32_t gap;
};

static void *queue;

void minimal_start_up(void)
{
    SYSFUN_GetMsgQ(24, 1, &queue);
}

__attribute__((cold, noinline)) static void report(const char *name, int line, uint32_t status)
{
    char command[64];
    printf("%s() line %d:Failed to send/receive IPC message.(msgq_key=%lu, rc=%lu)\r\n", name, line,
           (unsigned long)((uint32_t *)queue)[3], (unsigned long)status);
    sprintf(command, "cat /proc/%ld/ustack", (long)SYSFUN_TaskIdSelf());
    if (system(command) != 0) {
        return;
    }
}

uint8_t minimal_set(uint32_t unit, uint32_t port, uint8_t force_down)
{
    struct {
        struct header header;
        uint32_t unit;
        uint32_t port;
        uint32_t force_down;
    } envelope = {{{0, 0}, 120, 16, 0, 295, 0}, unit, port, force_down};

    uint32_t status =
        __SYSFUN_SendRequestMsg(queue, &envelope, 0xFFFFFFFF, 0x20000000, 4, &envelope, __func__, __LINE__);
    if (status != 0) {
        report(__func__, __LINE__, status);
        return 0;
    }
    return (uint8_t)envelope.header.type;
}

uint8_t minimal_get(uint32_t unit, uint32_t device_id, uint32_t *module_id)
{
    struct {
        struct header header;
        uint32_t unit;
        uint32_t device_id;
    } envelope = {{{0, 0}, 120, 12, 0, 9, 0}, unit, device_id};

    uint32_t status =
        __SYSFUN_SendRequestMsg(queue, &envelope, 0xFFFFFFFF, 0x20000000, 8, &envelope, __func__, __LINE__);
    if (status != 0) {
        report(__func__, __LINE__, status);
        return 0;
    }
    *module_id = envelope.unit;
    return (uint8_t)envelope.header.type;
}
