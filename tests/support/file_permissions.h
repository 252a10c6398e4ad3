#pragma once

#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

namespace orlo::testing
{

/// While it lives the permissions of files hold for this thread, also when root runs the tests.
class HeededPermissions
{
public:
    HeededPermissions()
    {
        Call(SYS_capget, before_);
        Sets heeding = before_;
        heeding[0].effective &= ~(1U << CAP_DAC_OVERRIDE | 1U << CAP_DAC_READ_SEARCH);
        Call(SYS_capset, heeding);
    }
    ~HeededPermissions() { syscall(SYS_capset, &header_, before_.data()); }
    HeededPermissions(const HeededPermissions&) = delete;
    HeededPermissions& operator=(const HeededPermissions&) = delete;

private:
    using Sets = std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3>;

    void Call(long what, Sets& sets)
    {
        if (syscall(what, &header_, sets.data()) != 0)
            throw std::runtime_error("the capabilities of this thread are out of reach");
    }

    __user_cap_header_struct header_{_LINUX_CAPABILITY_VERSION_3, 0};
    Sets before_{};
};

}  // namespace orlo::testing
