// Packet generators.
#include <chrono>
#include <memory>
#include <optional>
#include <utility>

#include "host/driver/handlers.h"
#include "host/driver/nicdrv_by_port.h"
#include "nicdrv/commands.h"

namespace quillon::driver {
namespace {

using nicdrv::PacketGen;
using std::chrono::steady_clock;

PacketGenerators::Packet generated(SharedSwitch &chips, const PacketPath &path, const PacketGen &request)
{
    auto packet = packet_by_port(chips, path.memory, request);
    return packet ? std::make_shared<const SentPacket>(*std::move(packet)) : nullptr;
}

// The numbers are those of the request that starts and stops.
bool start_or_stop(PacketGenerators &generators, const PacketGen &request)
{
    const auto on = as_bool(request.enable_arg2);
    const auto counted = as_bool(request.enable_arg3);
    if (!on || !counted) {
        return false;
    }
    if (!*on) {
        return generators.stop(request.generator);
    }
    return generators.start(request.generator, *counted ? std::optional(request.enable_arg4) : std::nullopt,
                            steady_clock::now());
}

}  // namespace

void add_nicdrv_packet_generator(Dispatcher &dispatcher, PacketPath &path, SharedSwitch &chips)
{
    dispatcher.on<nicdrv::AddPacketGenByPort>([&](const PacketGen &request, PacketGen &reply) {
        reply = request;
        auto packet = generated(chips, path, request);
        const auto entry = packet ? path.generators.lock()->add(request.generator, std::move(packet)) : std::nullopt;
        reply.entry = entry.value_or(0);
        return entry.has_value();
    });
    dispatcher.on<nicdrv::UpdatePacketGenByPort>([&](const PacketGen &request, PacketGen &reply) {
        reply = request;
        auto packet = generated(chips, path, request);
        return packet && path.generators.lock()->update(request.generator, request.entry, std::move(packet));
    });
    dispatcher.on<nicdrv::RemovePacketGen>([&](const PacketGen &request, PacketGen &reply) {
        reply = request;
        return path.generators.lock()->remove(request.generator, request.entry);
    });
    dispatcher.on<nicdrv::EnablePacketGen>([&](const PacketGen &request, PacketGen &reply) {
        reply = request;
        const bool done = start_or_stop(*path.generators.lock(), request);
        path.generators_changed();
        return done;
    });
    dispatcher.on<nicdrv::SetPacketGenRate>([&](const PacketGen &request, PacketGen &reply) {
        reply = request;
        const auto rate = path.generators.lock()->set_rate(request.generator, request.wanted_rate, steady_clock::now());
        path.generators_changed();
        reply.rate = rate.value_or(0);
        return rate.has_value();
    });
}

}  // namespace quillon::driver
