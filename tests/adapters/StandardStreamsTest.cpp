#include "Platform/Linux/StandardStreams.h"

#include "Platform/Linux/Descriptor.h"
#include "Platform/Linux/StandardConsole.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <array>
#include <csignal>
#include <string>

namespace orvelle {
namespace {

struct Pipe {
    Pipe() {
        std::array<int, 2> ends{};
        EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
        reader = Descriptor(ends[0]);
        writer = Descriptor(ends[1]);
    }
    std::string read() const {
        std::string text(1 << 20, '\0');
        text.resize(static_cast<std::size_t>(::read(reader.get(), text.data(), text.size())));
        return text;
    }

    Descriptor reader;
    Descriptor writer;
};

bool isNullDevice(int descriptor) {
    struct stat status {};
    return fstat(descriptor, &status) == 0 && S_ISCHR(status.st_mode) &&
           status.st_rdev == makedev(1, 3);
}

TEST(StandardStreamsTest, WhatTheStarterClosedIsTheNullDevice) {
    const auto closeAndSecure = [](std::initializer_list<int> closed) {
        for (const int stream : closed)
            close(stream);
        secureStandardStreams();
        for (const int stream : closed)
            if (!isNullDevice(stream))
                _exit(1);
        _exit(0);
    };
    EXPECT_EXIT(closeAndSecure({STDERR_FILENO}), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(closeAndSecure({STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}),
                testing::ExitedWithCode(0), "");
}

TEST(StandardStreamsTest, AReaderThatHasGoneDoesNotEndTheProcess) {
    Pipe pipe;
    pipe.reader = Descriptor();
    secureStandardStreams();
    writeOrLose(pipe.writer.get(), "unheard\n");
    std::signal(SIGPIPE, SIG_DFL);
}

TEST(StandardStreamsTest, WhatAFullPipeCannotTakeIsLostAndNotWaitedFor) {
    const Pipe pipe;
    for (int count = 0; count < 10'000; ++count)
        writeOrLose(pipe.writer.get(), std::string(99, 'x') + '\n');
    EXPECT_LT(pipe.read().size(), 1'000'000u);
    writeOrLose(pipe.writer.get(), "heard again\n");
    EXPECT_EQ(pipe.read(), "heard again\n");
}

TEST(StandardStreamsTest, ATextFromElsewhereStaysOnItsLineOfTheConsole) {
    const Pipe pipe;
    StandardConsole console(pipe.writer.get());
    console.print("Failed: No\nroute\x1B[31m ü");
    EXPECT_EQ(pipe.read(), "Failed: No route [31m ü\n");
}

} // namespace
} // namespace orvelle
