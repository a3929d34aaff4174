// The driver process under requests of any content, in any order, from several clients. An input is a sequence of
// requests; most of them have the module, code and size of a command. It begins with a switch in the state that it
// starts in.
#include <stdint.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <deque>
#include <optional>
#include <span>
#include <sstream>
#include <string>
#include <vector>

#include "fuzz/command_table.h"
#include "fuzz/driven_queue.h"
#include "fuzz/input.h"
#include "fuzz/require.h"
#include "host/driver/control_commands.h"
#include "host/driver/event_log.h"
#include "host/driver/handlers.h"
#include "host/driver/model/clock.h"
#include "host/driver/model/loan_counts.h"
#include "ipc/envelope.h"
#include "nicdrv/shared_record.h"

namespace quillon::fuzz {
namespace {

using host::Descriptor;
using host::PacketHeader;

constexpr std::array<uint32_t, 4> queue_keys = {24, 25, 52, 59};

std::string new_folder()
{
    char name[] = "/tmp/quillon-fuzz-XXXXXX";
    require(mkdtemp(name) != nullptr, "no folder");
    return name;
}

// What is written to it is a fault: a handler that threw.
class Faults {
  public:
    driver::EventLog &log() { return log_; }

    void require_none() const
    {
        const off_t size = lseek(file_.number(), 0, SEEK_END);
        if (size != 0) {
            std::string text(static_cast<size_t>(size), '\0');
            require(pread(file_.number(), text.data(), text.size(), 0) == size, "a log that cannot be read");
            require(false, text);
        }
    }

  private:
    Descriptor file_{memfd_create("log", MFD_CLOEXEC)};
    driver::EventLog log_{file_.number(), driver::Level::error};
};

// What the processes of a run share, and a client may write to at any time.
struct SharedMemory {
    static constexpr size_t receive_size = 160 * 1024;
    static constexpr size_t transmit_size = 8 * 1024;

    driver::PacketMemory packets()
    {
        const std::span all(ipc);
        return {all, all.subspan(receive_size), all.first(receive_size)};
    }

    nicdrv::NicShMem record;
    std::array<std::byte, receive_size + transmit_size> ipc;
};

// Queues, and all that answers on them. Registering takes longer than most runs, so that it is done once; the models
// are others in each run, in the same place.
class Driver {
  public:
    Driver()
    {
        add_handlers(dispatcher_, *models_);
        add_control_commands(control_, *models_);
        for (const uint32_t key : queue_keys) {
            queues_.emplace_back(
                folder_, key, [this](host::Request &request) { return dispatcher_.answer(request); }, report_);
        }
    }
    ~Driver()
    {
        queues_.clear();
        rmdir(folder_.c_str());
    }
    Driver(const Driver &) = delete;
    Driver &operator=(const Driver &) = delete;

    void begin()
    {
        memory_.record = {};
        memory_.ipc.fill({});
        models_.emplace(shape, memory_.packets());
        loans_.set_up(receive_task, models_->packets.reception.lock()->packets.levels());
        now_ = std::chrono::steady_clock::now();
    }

    void end()
    {
        models_.reset();
        faults_.require_none();
    }

    std::deque<DrivenQueue> &queues() { return queues_; }

    // What the driver process's own threads do between two requests.
    void work()
    {
        driver::PacketPath &path = models_->packets;
        path.reception.lock()->packets.fill(loans_);
        path.answer_receivers();
        now_ += std::chrono::milliseconds(1);
        while (const auto packet = path.generators.lock()->take_due(now_)) {
            path.send(*packet);
        }
        path.expire_receivers(now_);
    }

    // The record or, behind it, the transmit area.
    void write_memory(size_t offset, std::span<const uint8_t> bytes)
    {
        const auto record = std::as_writable_bytes(std::span(&memory_.record, 1));
        const auto transmit_area = std::span(memory_.ipc).subspan(SharedMemory::receive_size);
        const auto to = offset < record.size() ? record.subspan(offset)
                                               : transmit_area.subspan((offset - record.size()) % transmit_area.size());
        std::ranges::copy(std::as_bytes(bytes.first(std::min(bytes.size(), to.size()))), to.begin());
    }

    void command(const std::vector<std::string> &words) const { control_.run(words); }

  private:
    static constexpr driver::StackShape shape{.units = 2, .ports = 28, .chips = 2};
    static constexpr uint32_t receive_task = 1;

    Faults faults_;
    SharedMemory memory_{};
    driver::LoanCounts loans_{memory_.record};
    std::optional<driver::Models> models_{std::in_place, shape, memory_.packets()};
    driver::Time now_;
    driver::Dispatcher dispatcher_{faults_.log()};
    driver::ControlCommands control_;

    const std::string folder_ = new_folder();
    const host::IncidentReport report_ = [](const host::Incident &incident) {
        require(incident.kind == host::Incident::Kind::foreign_peer, "an incident on a queue");
    };
    std::deque<DrivenQueue> queues_;
};

// What is wrong with a request, if anything.
enum class Fault : uint8_t {
    none,
    cut_short,
    other_size,      // than msg_size says
    other_msg_size,  // than the command's
    other_queue,
    little_room,  // for the reply
    foreign,      // no packet of this transport
};

// What else an input may do.
constexpr uint8_t client_hangs_up = 7;
constexpr uint8_t control_command = 8;
constexpr uint8_t client_writes_memory = 9;

struct Sent {
    PacketHeader header;
    std::vector<uint8_t> envelope;
};

class Run {
  public:
    explicit Run(Driver &driver) : driver_(driver)
    {
        driver_.begin();
        for (auto &clients : clients_) {
            for (DrivenQueue &queue : driver_.queues()) {
                clients.emplace_back(queue);
            }
        }
    }
    ~Run()
    {
        for (auto &clients : clients_) {
            clients.clear();
        }
        driver_.end();
    }
    Run(const Run &) = delete;
    Run &operator=(const Run &) = delete;

    void step(Input &input)
    {
        const auto kind = input.next();
        auto &clients = clients_[kind % clients_.size()];
        const auto what = static_cast<uint8_t>(kind / clients_.size());
        if (what == client_hangs_up) {
            std::ranges::for_each(clients, &QueueClient::hang_up);
        } else if (what == control_command) {
            control(input);
        } else if (what == client_writes_memory) {
            const auto offset = input.next<uint16_t>();
            driver_.write_memory(offset, input.words());
        } else {
            request(clients, what < client_hangs_up ? Fault{what} : Fault::none, input);
        }
        driver_.work();
    }

  private:
    // By the queues' order.
    using Clients = std::deque<QueueClient>;

    void request(Clients &clients, Fault fault, Input &input)
    {
        static const CommandTable commands;
        const size_t family = input.next();
        const Command &command = commands.find(family, input.next<uint16_t>());
        const size_t detail = fault == Fault::none ? 0 : input.next();
        const size_t queue =
            fault == Fault::other_queue
                ? detail % queue_keys.size()
                : static_cast<size_t>(std::ranges::find(queue_keys, command.queue) - queue_keys.begin());
        const Sent sent = packet_of(command, fault, detail, input.words());
        QueueClient &client = clients.at(queue);
        client.send(sent.header, sent.envelope);
        check_reply(client.receive(), sent);
    }

    Sent packet_of(const Command &command, Fault fault, size_t detail, const std::vector<uint8_t> &member)
    {
        Sent sent{.header = {.sequence = ++sequence_,
                             .room = static_cast<uint32_t>(host::kEnvelopeStart + command.reply_size)},
                  .envelope = {}};
        uint16_t msg_size = command.msg_size;
        if (fault == Fault::other_msg_size) {
            msg_size = static_cast<uint16_t>(ipc::size_of_type + detail);
        } else if (fault == Fault::little_room) {
            sent.header.room = static_cast<uint32_t>(detail);
        } else if (fault == Fault::foreign) {
            sent.header.kind = static_cast<uint16_t>(detail);
        }

        const ipc::Header header{.msg_type = {0xA3A2A1A0, 0xA7A6A5A4},
                                 .cmd = command.module,
                                 .msg_size = msg_size,
                                 .reserved = 0xB3B2B1B0,
                                 .type = command.code};
        sent.envelope.resize(sizeof header + msg_size);
        memcpy(sent.envelope.data(), &header, sizeof header);
        const auto data = std::span(sent.envelope).subspan(command.data_offset);
        std::copy_n(member.begin(), std::min(member.size(), data.size()), data.begin());
        if (fault == Fault::cut_short) {
            sent.envelope.resize(detail % sizeof header);
        } else if (fault == Fault::other_size) {
            sent.envelope.resize(sent.envelope.size() + 1 + detail);
        }
        return sent;
    }

    // None has come for a request that waits, and for one that is none.
    static void check_reply(const std::vector<uint8_t> &packet, const Sent &sent)
    {
        if (packet.empty()) {
            return;
        }
        PacketHeader header;
        require(packet.size() >= sizeof header, "a reply without a header");
        memcpy(&header, packet.data(), sizeof header);
        require(header.is_ours() && header.sequence == sent.header.sequence, "a reply to another request");
        const auto envelope = std::span(packet).subspan(sizeof header);
        require(envelope.size() <= sent.header.room, "a reply larger than its room");
        const size_t repeated = std::min({envelope.size(), sent.envelope.size(), offsetof(ipc::Header, type)});
        require(std::ranges::equal(envelope.first(repeated), std::span(sent.envelope).first(repeated)),
                "a reply with another header than its request");
    }

    void control(Input &input)
    {
        const auto line = input.text();
        std::istringstream text(std::string(line.begin(), line.end()));
        std::vector<std::string> words;
        for (std::string word; text >> word;) {
            words.push_back(word);
        }
        driver_.command(words);
    }

    Driver &driver_;
    std::array<Clients, 4> clients_;
    uint32_t sequence_ = 0;
};

}  // namespace
}  // namespace quillon::fuzz

extern "C" [[gnu::visibility("default")]] int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    using namespace quillon::fuzz;
    static Driver driver;
    Input input(std::span(data, size));
    Run run(driver);
    while (!input.empty()) {
        run.step(input);
    }
    return 0;
}
