#include "support.h"

#include <errno.h>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <system_error>
#include <thread>

namespace quillon::test {
namespace {

using host::Incident;
using host::PendingReply;
using host::QueueServer;
using host::Request;
using host::RuntimeFolder;

// Past all that a test has open.
constexpr int kMostDescriptors = 4096;

[[noreturn]] void fail(const char *what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

// Set before any test runs: the client's half looks it up once.
[[maybe_unused]] const std::string &folder_at_first = runtime_folder();

char letter(Incident::Kind kind)
{
    switch (kind) {
        case Incident::Kind::foreign_peer:
            return 'f';
        case Incident::Kind::refused_peer:
            return 'u';
        case Incident::Kind::reply_not_taken:
            return 'n';
        case Incident::Kind::no_descriptors:
            return 'd';
        case Incident::Kind::handler_threw:
            return 't';
    }
    return '?';
}

QueueServer *server_to_stop = nullptr;

class TestDriver {
  public:
    explicit TestDriver(const Events *events) : events_(events) {}

    size_t handle(Request &request)
    {
        if (request.form() != Request::Form::sound) {
            tell(request.form() == Request::Form::too_short ? 's' : 'w');
            return reply_with(request, 0);
        }
        switch (static_cast<Ask>(word_at(request, 16))) {
            case Ask::echo: {
                const size_t size = std::min(request.bytes().size(), request.reply().size());
                std::copy_n(request.bytes().begin(), size, request.reply().begin());
                return size;
            }
            case Ask::queue:
                return reply_with(request, request.queue());
            case Ask::count:
                return reply_with(request, ++count_);
            case Ask::sized: {
                // Larger than the room that there is: the server cuts it.
                std::ranges::fill(request.reply(), std::byte{0xAB});
                return word_at(request, 20);
            }
            case Ask::park:
                return park(request);
            case Ask::release:
                return reply_with(request, release());
            case Ask::cross: {
                PendingReply reply = request.answer_later();
                std::jthread([&reply] { reply.answer(envelope_with(7)); });
                return 0;
            }
            case Ask::forget:
                request.answer_later();
                return 0;
            case Ask::silence:
                return 0;
            case Ask::throw_error:
                throw std::runtime_error("as asked");
            case Ask::die:
                raise(SIGKILL);
        }
        return 0;
    }

    void tell(char what) const
    {
        if (events_ != nullptr) {
            events_->tell(what);
        }
    }

  private:
    static uint32_t word_at(const Request &request, size_t offset)
    {
        uint32_t word = 0;
        memcpy(&word, &request.bytes()[offset], sizeof word);
        return word;
    }

    static std::array<std::byte, 24> envelope_with(uint32_t word)
    {
        std::array<std::byte, 24> bytes = {};
        bytes[16] = std::byte{1};
        memcpy(&bytes[20], &word, sizeof word);
        return bytes;
    }

    static size_t reply_with(Request &request, uint32_t word)
    {
        const auto bytes = envelope_with(word);
        const size_t size = std::min(bytes.size(), request.reply().size());
        std::copy_n(bytes.begin(), size, request.reply().begin());
        return size;
    }

    size_t park(Request &request)
    {
        PendingReply reply = request.answer_later([this] { tell('g'); });
        const std::lock_guard lock(mutex_);
        parked_.push_back(std::move(reply));
        tell('p');
        return 0;
    }

    uint32_t release()
    {
        std::vector<PendingReply> all;
        {
            const std::lock_guard lock(mutex_);
            all.swap(parked_);
        }
        uint32_t taken = 0;
        std::jthread([&] {
            for (PendingReply &reply : all) {
                taken += reply.answer(envelope_with(5));
            }
        }).join();
        return taken;
    }

    const Events *events_;
    uint32_t count_ = 0;
    std::mutex mutex_;
    std::vector<PendingReply> parked_;
};

int serve(const Events *events, const std::function<void()> &ready)
{
    const RuntimeFolder folder = RuntimeFolder::claim();
    TestDriver driver(events);
    QueueServer server(folder, [&driver](const Incident &incident) { driver.tell(letter(incident.kind)); });
    for (const uint32_t key : {kQueue, kOtherQueue}) {
        server.create_queue(key, [&driver](Request &request) { return driver.handle(request); });
    }
    server_to_stop = &server;
    signal(SIGTERM, [](int) { server_to_stop->stop(); });
    ready();
    server.run();
    return 0;
}

sockaddr_un address_of(uint32_t key)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    queue_path(key).copy(address.sun_path, sizeof address.sun_path - 1);
    return address;
}

}  // namespace

std::string queue_path(uint32_t key)
{
    return runtime_folder() + "/queue-" + std::to_string(key);
}

Driver::Driver(const Events *events, const std::function<void()> &first)
    : Process([&](const auto &ready) {
          if (first) {
              first();
          }
          return serve(events, ready);
      })
{
}

Envelope::Envelope(Ask type, uint32_t word)
{
    const uint16_t module = 120;
    const uint16_t msg_size = 12;
    memcpy(&bytes[8], &module, sizeof module);
    memcpy(&bytes[10], &msg_size, sizeof msg_size);
    memcpy(&bytes[16], &type, sizeof type);
    memcpy(&bytes[20], &word, sizeof word);
}

void *attach(uint32_t key)
{
    void *handle = nullptr;
    SYSFUN_GetMsgQ(key, 1, &handle);
    return handle;
}

uint32_t exchange(void *handle, Envelope &envelope, uint32_t wait_time)
{
    constexpr uint32_t kReplySize = 12;
    return __SYSFUN_SendRequestMsg(handle, envelope.bytes.data(), wait_time, 0x20000000, kReplySize,
                                   envelope.bytes.data(), __func__, __LINE__);
}

uint32_t ask(void *handle, Ask type, uint32_t word)
{
    Envelope envelope(type, word);
    EXPECT_EQ(exchange(handle, envelope), QUILLON_STATUS_OK);
    return envelope.word();
}

int raw_connection(uint32_t key)
{
    const int descriptor = socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0);
    const sockaddr_un address = address_of(key);
    if (descriptor < 0 || connect(descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0) {
        fail("raw connection");
    }
    return descriptor;
}

std::vector<char> raw_request(Ask type, uint32_t sequence)
{
    const host::PacketHeader header = {.sequence = sequence, .room = 32};
    const Envelope envelope(type);
    constexpr size_t kEnvelopeSize = 32;
    std::vector<char> packet(sizeof header + kEnvelopeSize);
    memcpy(packet.data(), &header, sizeof header);
    memcpy(&packet[sizeof header], envelope.bytes.data(), kEnvelopeSize);
    return packet;
}

std::set<int> open_sockets()
{
    std::set<int> sockets;
    for (int descriptor = 0; descriptor < kMostDescriptors; ++descriptor) {
        struct stat status;
        if (fstat(descriptor, &status) == 0 && S_ISSOCK(status.st_mode)) {
            sockets.insert(descriptor);
        }
    }
    return sockets;
}

void limit_descriptors(rlim_t soft, rlim_t hard)
{
    int highest = 0;
    for (int descriptor = 0; descriptor < kMostDescriptors; ++descriptor) {
        highest = fcntl(descriptor, F_GETFD) >= 0 ? descriptor : highest;
    }
    // The limit is one of numbers: those below that are free would count as room.
    int filler;
    do {
        filler = open("/dev/null", O_RDONLY | O_CLOEXEC);
    } while (filler >= 0 && filler < highest);
    close(filler);
    const auto used = static_cast<rlim_t>(filler);
    const rlimit limit = {.rlim_cur = used + soft, .rlim_max = used + hard};
    if (filler < 0 || setrlimit(RLIMIT_NOFILE, &limit) != 0) {
        fail("limit of descriptors");
    }
}

}  // namespace quillon::test
