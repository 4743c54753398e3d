#pragma once

#include <linux/capability.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace quorvale {

/// Leaves the process, if it is root's, the rights of an owner and no more. There is no way back.
inline bool DropPrivileges() {
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct none[_LINUX_CAPABILITY_U32S_3] = {};
    return ::syscall(SYS_capset, &header, none) == 0;
}

/// Asks in a child process to which permissions apply even if it is root's.
template <class Question>
bool WithoutPrivileges(Question question) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(DropPrivileges() && question() ? 0 : 1);
    int status = -1;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace quorvale
