#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>

namespace orvelle {

/// Lets the superuser's tests run as an ordinary user for a while, who may not do everything: all
/// threads, and `access`, which asks for the real user. An ordinary user stays who they are.
class OrdinaryUser {
public:
    static constexpr uid_t nobody = 65534;

    /// Gives them the folder with all that is in it.
    explicit OrdinaryUser(const std::string& folder) : isSuperuser_(geteuid() == 0) {
        if (!isSuperuser_)
            return;
        EXPECT_EQ(chown(folder.c_str(), nobody, nobody), 0);
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
            EXPECT_EQ(lchown(entry.path().c_str(), nobody, nobody), 0);
        EXPECT_EQ(setresuid(nobody, nobody, 0), 0);
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser() {
        if (isSuperuser_) {
            EXPECT_EQ(setresuid(0, 0, 0), 0);
        }
    }

private:
    bool isSuperuser_;
};

} // namespace orvelle
