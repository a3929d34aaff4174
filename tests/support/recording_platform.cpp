#include "support/recording_platform.h"

#include <gtest/gtest.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <memory>

#include "quillon/platform.h"

namespace quillon::test {
namespace {

constexpr size_t header_size = 20;
constexpr size_t key_offset = 12;
constexpr size_t type_offset = 16;
constexpr uint32_t attach_failed = 3;

struct QueueObject {
    uint8_t bytes[key_offset + sizeof(uint32_t)];
};

void *new_handle(uint32_t key)
{
    static std::vector<std::unique_ptr<QueueObject>> objects;
    QueueObject &object = *objects.emplace_back(std::make_unique<QueueObject>());
    memset(object.bytes, RecordingPlatform::poison, sizeof object.bytes);
    memcpy(object.bytes + key_offset, &key, sizeof key);
    return &object;
}

std::optional<uint32_t> key_of(const void *handle)
{
    if (handle == nullptr) {
        return std::nullopt;
    }
    uint32_t key = 0;
    memcpy(&key, static_cast<const uint8_t *>(handle) + key_offset, sizeof key);
    return key;
}

std::vector<uint8_t> sent_bytes(const void *request)
{
    const auto *bytes = static_cast<const uint8_t *>(request);
    uint16_t msg_size = 0;
    memcpy(&msg_size, bytes + 10, sizeof msg_size);
    return {bytes, bytes + header_size + msg_size};
}

void play_back(const PlayedReply &reply, uint8_t *room, size_t size)
{
    if (reply.poisoned) {
        memset(room, RecordingPlatform::poison, size);
    }
    if (type_offset + reply.from_type.size() > size) {
        ADD_FAILURE() << "the reply ends at +" << type_offset + reply.from_type.size() << ", its room at +" << size;
        return;
    }
    uint8_t *next = room + type_offset;
    for (const TextByte byte : reply.from_type) {
        if (byte) {
            *next = *byte;
        }
        ++next;
    }
}

uint32_t send(void *handle, void *request, uint32_t wait_time, uint32_t event_mask, uint32_t reply_size, void *reply,
              const char *function, uint32_t line)
{
    RecordingPlatform &recording = platform();
    recording.sent.push_back({.handle = handle,
                              .queue_key = key_of(handle),
                              .envelope = sent_bytes(request),
                              .wait_time = wait_time,
                              .event_mask = event_mask,
                              .reply_size = reply_size,
                              .reply_in_place = reply == request,
                              .function = function,
                              .line = line});
    if (!recording.answer) {
        ADD_FAILURE() << function << " sent a request that the test does not expect";
        return 1;
    }
    const PlayedReply played = recording.answer(recording.sent.back());
    play_back(played, static_cast<uint8_t *>(reply), header_size + reply_size);
    return played.status;
}

void record(const std::string &call)
{
    if (platform().before_system_call) {
        platform().before_system_call();
    }
    platform().system_calls.push_back(call);
}

std::string text(uint32_t number)
{
    return std::to_string(number);
}

IpcPlace place_of(const void *address)
{
    const auto place = platform().ipc_places.find(address);
    if (place == platform().ipc_places.end()) {
        ADD_FAILURE() << "the offset of an address is asked for that the test does not know";
        return {};
    }
    return place->second;
}

}  // namespace

RecordingPlatform &platform()
{
    static RecordingPlatform recording;
    return recording;
}

void reset_platform()
{
    platform() = {};
}

}  // namespace quillon::test

using quillon::test::platform;
using quillon::test::record;
using quillon::test::text;

uint32_t SYSFUN_GetMsgQ(uint32_t key, uint32_t mode, void **handle)
{
    const bool missing = platform().missing_queues.contains(key);
    *handle = missing ? nullptr : quillon::test::new_handle(key);
    platform().attaches.push_back({key, mode, *handle});
    return missing ? quillon::test::attach_failed : 0;
}

// The platform's own function returns a wider word, of which only the low half is the status. What stands in the high
// half must not be read.
extern "C" [[gnu::visibility("default")]] uint64_t recorded_send(void *handle, void *request, uint32_t wait_time,
                                                                 uint32_t event_mask, uint32_t reply_size, void *reply,
                                                                 const char *function,
                                                                 uint32_t line) __asm__("__SYSFUN_SendRequestMsg");

uint64_t recorded_send(void *handle, void *request, uint32_t wait_time, uint32_t event_mask, uint32_t reply_size,
                       void *reply, const char *function, uint32_t line)
{
    constexpr uint64_t high_half = 0xA5A5A5A500000000;
    return high_half | quillon::test::send(handle, request, wait_time, event_mask, reply_size, reply, function, line);
}

uint32_t SYSFUN_TaskIdSelf(void)
{
    return quillon::test::RecordingPlatform::task_id;
}

uint32_t SYSFUN_GetSem(uint32_t key, uint32_t *semaphore)
{
    record("GetSem " + text(key));
    const auto found = platform().semaphores.find(key);
    if (found == platform().semaphores.end()) {
        return 1;
    }
    *semaphore = found->second;
    return 0;
}

// Semaphores are there to be recorded; no task waits for another here.
uint32_t SYSFUN_TakeSem(uint32_t semaphore, uint32_t timeout)
{
    record("TakeSem " + text(semaphore) + " " + text(timeout));
    return 0;
}

uint32_t SYSFUN_GiveSem(uint32_t semaphore)
{
    record("GiveSem " + text(semaphore));
    return 0;
}

uint32_t SYSFUN_SendEvent(uint32_t task_id, uint32_t events)
{
    record("SendEvent " + text(task_id) + " " + text(events));
    return platform().event_status;
}

void *SYSRSC_MGR_GetShMem(uint32_t segment_id)
{
    record("GetShMem " + text(segment_id));
    const auto found = platform().segments.find(segment_id);
    return found == platform().segments.end() ? nullptr : found->second;
}

uint8_t L_IPCMEM_GetRxBufStartAddress(void **start)
{
    record("GetRxBufStartAddress");
    if (!platform().receive_buffers) {
        return 0;
    }
    *start = *platform().receive_buffers;
    return 1;
}

uint32_t L_IPCMEM_GetOffset(const void *address)
{
    return quillon::test::place_of(address).offset;
}

uint32_t L_IPCMEM_GetTxOffset(const void *address)
{
    return quillon::test::place_of(address).tx_offset;
}

uint32_t BACKDOOR_MGR_Register_SubsysBackdoorFunc_CallBack(const char *name, uint32_t number, void (*entry)(void))
{
    platform().registrations.push_back({name, number, entry});
    return platform().registration_status;
}

void BACKDOOR_MGR_Printf(const char *format, ...)
{
    char text[256];
    va_list arguments;
    va_start(arguments, format);
    const int length = vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    EXPECT_LT(length, static_cast<int>(sizeof text)) << "a text is cut";
    platform().console_texts.emplace_back(text);
}

// Only the low byte of what this returns is a key, or the failure.
uint32_t BACKDOOR_MGR_GetChar(void)
{
    constexpr uint32_t high_bytes = 0xA5A5A500;
    constexpr uint32_t failure = 0xFF;
    std::deque<uint8_t> &keys = platform().console_keys;
    if (keys.empty()) {
        return high_bytes | failure;
    }
    const uint8_t key = keys.front();
    keys.pop_front();
    return high_bytes | key;
}

// Stands in for the C library's: what the library would run is looked at instead. A program may have one of its own.
extern "C" [[gnu::weak, gnu::visibility("default")]] int system(const char *command)
{
    platform().shell_commands.emplace_back(command);
    return 0;
}
