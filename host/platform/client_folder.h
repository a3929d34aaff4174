// Where the client looks for its driver process. C library only.
#ifndef QUILLON_HOST_PLATFORM_CLIENT_FOLDER_H
#define QUILLON_HOST_PLATFORM_CLIENT_FOLDER_H

namespace quillon::host {

// The path of the run-time folder, null while it is no good. Found once and not again: a program may change its
// environment while other threads make requests.
const char *client_runtime_folder();

}  // namespace quillon::host

#endif
