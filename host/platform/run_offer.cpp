#include "host/platform/run_offer.h"

#include <errno.h>
#include <string.h>
#include <sys/socket.h>
#include <sys/uio.h>

namespace quillon::host {
namespace {

// One packet with room for one descriptor.
class OfferMessage {
  public:
    explicit OfferMessage(RunOffer &offer) : part_{&offer, sizeof offer}
    {
        header.msg_iov = &part_;
        header.msg_iovlen = 1;
        header.msg_control = control_;
        header.msg_controllen = sizeof control_;
    }
    OfferMessage(const OfferMessage &) = delete;
    OfferMessage &operator=(const OfferMessage &) = delete;

    msghdr header = {};

  private:
    iovec part_;
    alignas(cmsghdr) char control_[CMSG_SPACE(sizeof(int))] = {};
};

}  // namespace

bool send_offer(int socket, const RunOffer &offer, int memory)
{
    RunOffer sent = offer;
    OfferMessage message(sent);
    cmsghdr *const rights = CMSG_FIRSTHDR(&message.header);
    rights->cmsg_level = SOL_SOCKET;
    rights->cmsg_type = SCM_RIGHTS;
    rights->cmsg_len = CMSG_LEN(sizeof memory);
    memcpy(CMSG_DATA(rights), &memory, sizeof memory);
    return sendmsg(socket, &message.header, MSG_NOSIGNAL | MSG_DONTWAIT) >= 0;
}

ssize_t receive_offer(int socket, RunOffer &offer, int &memory)
{
    memory = -1;
    OfferMessage message(offer);
    const ssize_t size = recvmsg(socket, &message.header, MSG_DONTWAIT | MSG_CMSG_CLOEXEC);
    if (size <= 0) {
        return size;
    }
    const cmsghdr *const rights = CMSG_FIRSTHDR(&message.header);
    if (rights != nullptr && rights->cmsg_level == SOL_SOCKET && rights->cmsg_type == SCM_RIGHTS &&
        rights->cmsg_len == CMSG_LEN(sizeof memory)) {
        memcpy(&memory, CMSG_DATA(rights), sizeof memory);
    } else if ((message.header.msg_flags & MSG_CTRUNC) != 0) {
        errno = EMFILE;
        return -1;
    }
    return size;
}

}  // namespace quillon::host
