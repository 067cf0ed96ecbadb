#include "Platform/Linux/PeerCredentials.h"

#include <sys/socket.h>
#include <unistd.h>

namespace tomcatto {

bool isPeerTrusted(int descriptor)
{
    ucred peer = {};
    socklen_t size = sizeof peer;
    if (::getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &peer, &size) != 0)
        return false;
    return peer.uid == ::geteuid() || peer.uid == 0;
}

}
