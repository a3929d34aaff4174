/* A platform that does nothing, so that what is measured is the stub. */
#include "quillon/platform.h"

static uint32_t queue_object[4] = {0, 0, 0, 24};

uint32_t SYSFUN_GetMsgQ(uint32_t key, uint32_t mode, void **handle)
{
    (void)key;
    (void)mode;
    *handle = queue_object;
    return 0;
}

uint32_t __SYSFUN_SendRequestMsg(void *handle, void *request, uint32_t wait_time, uint32_t event_mask,
                                 uint32_t reply_size, void *reply, const char *function, uint32_t line)
{
    (void)handle;
    (void)request;
    (void)wait_time;
    (void)event_mask;
    (void)reply_size;
    (void)reply;
    (void)function;
    (void)line;
    return 0;
}

uint32_t SYSFUN_TaskIdSelf(void)
{
    return 1;
}
