#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

/// As long as it lives the system takes the program for an ordinary user's; nothing changes where it is.
class OrdinaryUser
{
public:
    static constexpr uid_t number = 65534;

    OrdinaryUser() { becomes(number); }
    ~OrdinaryUser() { becomes(getuid()); }

private:
    static void becomes(uid_t user)
    {
        const bool may = getuid() != 0 || seteuid(user) == 0;
        EXPECT_TRUE(may);
    }
};
