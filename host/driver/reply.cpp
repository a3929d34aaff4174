#include "host/driver/reply.h"

#include <algorithm>

namespace quillon::driver {

ReplyHeader::ReplyHeader(std::span<const std::byte> request)
{
    std::ranges::copy(request.first(std::min(request.size(), bytes_.size())), bytes_.begin());
}

size_t write_reply(std::span<std::byte> room, const ReplyHeader &header, const ReplyShape &shape,
                   std::span<const std::byte> member)
{
    // The gap in front of the member is not counted in the size; the envelope has room for it all the same.
    const std::span<std::byte> reply = room.first(std::min(room.size(), sizeof(ipc::Header) + shape.reply_size));
    if (reply.size() < sizeof(ipc::Header)) {
        return 0;
    }
    auto rest = std::ranges::copy(header.bytes(), reply.begin()).out;
    rest = std::ranges::copy(std::as_bytes(std::span(&shape.result, 1)), rest).out;
    std::fill(rest, reply.end(), std::byte{0});
    if (reply.size() > shape.data_offset) {
        const std::span<std::byte> data = reply.subspan(shape.data_offset);
        std::ranges::copy(member.first(std::min(member.size(), data.size())), data.begin());
    }
    return reply.size();
}

}  // namespace quillon::driver
