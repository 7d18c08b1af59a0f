#include "support/failing_system_call.h"

#include <array>
#include <cstddef>
#include <cstdlib>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>

void failSystemCall(int number, int error) {
    const auto wanted = static_cast<unsigned>(number);
    const auto answer = SECCOMP_RET_ERRNO | static_cast<unsigned>(error);
    std::array<sock_filter, 4> filter{{
        {BPF_LD | BPF_W | BPF_ABS, 0, 0, offsetof(seccomp_data, nr)},
        {BPF_JMP | BPF_JEQ | BPF_K, 0, 1, wanted},
        {BPF_RET | BPF_K, 0, 0, answer},
        {BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ALLOW},
    }};
    const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 || prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0) {
        std::abort();
    }
}
