// The platform functions as the tests of the library bring them: they record what they are asked and answer as told.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "support/byte_text.h"

namespace quillon::test {

// One call of __SYSFUN_SendRequestMsg.
struct SentRequest {
    void *handle;
    // No key: the handle was null.
    std::optional<uint32_t> queue_key;
    // The envelope as it was sent: 20 + msg_size bytes.
    std::vector<uint8_t> envelope;
    uint32_t wait_time;
    uint32_t event_mask;
    uint32_t reply_size;
    bool reply_in_place;
    std::string function;
    uint32_t line;
};

// One call of SYSFUN_GetMsgQ.
struct Attach {
    uint32_t key;
    uint32_t mode;
    // Every successful attach yields a handle of its own; a failed one yields null.
    void *handle;
};

// What stands in the reply buffer when __SYSFUN_SendRequestMsg returns, and what it returns.
struct PlayedReply {
    uint32_t status = 0;
    // Fills the room of the reply with poison first: whatever the library reads has to come from the reply.
    bool poisoned = true;
    // Stored from byte 16 on, where the room ends at 20 + the reply size; open bytes are left as they are.
    std::vector<TextByte> from_type = {};
};

// One call of BACKDOOR_MGR_Register_SubsysBackdoorFunc_CallBack.
struct ConsoleRegistration {
    std::string name;
    uint32_t number;
    void (*entry)();
};

// Where an address lies in the IPC memory.
struct IpcPlace {
    uint32_t offset;
    uint32_t tx_offset;
};

struct RecordingPlatform {
    static constexpr uint32_t task_id = 0x87654321;
    static constexpr uint8_t poison = 0xC9;

    std::function<PlayedReply(const SentRequest &)> answer;
    std::set<uint32_t> missing_queues;

    std::vector<SentRequest> sent;
    std::vector<Attach> attaches;
    // What registering with the debug console returns.
    uint32_t registration_status = 0;
    // The keys that are read on the debug console. Behind the last one reading fails.
    std::deque<uint8_t> console_keys;
    std::vector<ConsoleRegistration> registrations;
    // What was printed on the debug console, call by call.
    std::vector<std::string> console_texts;

    // What was asked of semaphores, task events and shared memory, in order: "TakeSem 305419896 4294967295".
    std::vector<std::string> system_calls;
    // Called before each of them is recorded.
    std::function<void()> before_system_call;
    // The ids of the semaphores that there are, by their keys.
    std::map<uint32_t, uint32_t> semaphores;
    // What sending an event returns.
    uint32_t event_status = 0;
    std::map<uint32_t, void *> segments;
    // None: there is no area of receive buffers.
    std::optional<void *> receive_buffers;
    std::map<const void *, IpcPlace> ipc_places;

    // Commands handed to system(). None of them is run.
    std::vector<std::string> shell_commands;
};

// The one of this process. The tests of an executable run one after another.
RecordingPlatform &platform();

// Forgets all records and answers. Handles that were given out stay valid.
void reset_platform();

}  // namespace quillon::test
