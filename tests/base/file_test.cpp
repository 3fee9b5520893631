// SPDX-License-Identifier: MIT
#include "base/file.h"

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/fsuid.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace wallgrid;
namespace fs = std::filesystem;

namespace {

int umaskCalls = 0;

} // namespace

/// Stands in for the C library's.
extern "C" mode_t umask(mode_t mask) noexcept
{
    ++umaskCalls;
    return static_cast<mode_t>(::syscall(SYS_umask, mask));
}

namespace {

class FileTest : public testing::Test {
protected:
    FileTest()
    {
        std::string pattern = (fs::temp_directory_path() / "wallgrid-test-XXXXXX").string();
        folder = ::mkdtemp(pattern.data());
    }
    ~FileTest() override { fs::remove_all(folder); }

    std::string path(const char* name) const { return (folder / name).string(); }
    std::size_t entries() const
    {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
    }

    fs::path folder;
    const Bytes old{'o', 'l', 'd'};
    const Bytes fresh = Bytes(300, 7);
};

} // namespace

TEST_F(FileTest, TakesTheUmaskOffWithoutSettingIt)
{
    const mode_t mask = ::umask(027);
    const int calls = umaskCalls;
    ASSERT_TRUE(writeFileAtomically(path("a"), old));
    EXPECT_EQ(umaskCalls, calls) << "another thread may make a file just now";
    EXPECT_EQ(fs::status(path("a")).permissions(), fs::perms(0640));
    ::umask(mask);
}

TEST_F(FileTest, KeepsPermissionsAndFollowsLinks)
{
    ASSERT_TRUE(writeFileAtomically(path("target"), old));
    fs::permissions(path("target"), fs::perms(0604));
    fs::create_symlink("target", path("link"));
    ASSERT_TRUE(writeFileAtomically(path("link"), fresh));
    EXPECT_TRUE(fs::is_symlink(path("link")));
    EXPECT_EQ(fs::status(path("target")).permissions(), fs::perms(0604));
}

TEST_F(FileTest, RefusesWhatIsNoRegularFile)
{
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    ASSERT_EQ(::truncate((std::ofstream(path("big")).put('x'), path("big").c_str()), (off_t{1} << 30) + 1), 0);
    const auto reason = [](const auto& result) { return result ? std::string("none") : result.error().message; };
    EXPECT_EQ(reason(readFile(path("pipe"))), "this is a device or a pipe, not a file");
    EXPECT_EQ(reason(readFile(path("big"))), "the file is larger than 1 GiB");
    EXPECT_EQ(reason(writeFileAtomically(path("."), fresh)), "this is a folder, not a file");
    EXPECT_EQ(reason(writeFileAtomically(path(std::string(256, 'a').c_str()), fresh)), "the name is too long");
    EXPECT_EQ(entries(), 2u);
}

TEST_F(FileTest, DeviceThatFailsAfterAnyByteLeavesTheOldFile)
{
    const Bytes& bytes = fresh;
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
    const auto writeWithin = [&](std::size_t most, auto write, const char* name) {
        const rlimit tight{most, limit.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &tight);
        const bool written = write(path(name), bytes, Report()).has_value();
        ::setrlimit(RLIMIT_FSIZE, &limit);
        return written;
    };
    const auto inPlace = [](const std::string& file, const Bytes& content, const Report&) {
        return produceFileInPlace(file, [&](ByteSink& sink) { return sink.append(content); });
    };
    ASSERT_TRUE(writeFileAtomically(path("renamed"), old));
    ASSERT_TRUE(inPlace(path("direct"), old, {}));
    fs::create_hard_link(path("direct"), path("link"));
    for (std::size_t most = 0; most < bytes.size(); ++most) {
        SCOPED_TRACE(most);
        EXPECT_FALSE(writeWithin(most, writeFileAtomically, "renamed"));
        EXPECT_EQ(readFile(path("renamed")).value_or(Bytes()), old);
        EXPECT_FALSE(writeWithin(most, inPlace, "direct"));
        EXPECT_EQ(readFile(path("direct")).value_or(Bytes()), old);
        EXPECT_EQ(entries(), 3u) << "no other file is left";
    }
    EXPECT_TRUE(writeWithin(bytes.size(), writeFileAtomically, "renamed"));
    EXPECT_EQ(readFile(path("renamed")).value_or(Bytes()), bytes);
    for (const Bytes& next : {bytes, old}) {
        EXPECT_TRUE(inPlace(path("direct"), next, {}));
        EXPECT_EQ(readFile(path("link")).value_or(Bytes()), next);
    }
    const auto failsWhenCopied = [&](ByteSink& sink) {
        auto written = sink.append(bytes);
        const rlimit tight{100, limit.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &tight);
        return written;
    };
    EXPECT_TRUE(produceFileInPlace(path("direct"), failsWhenCopied));
    ::setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_EQ(readFile(path("direct")).value_or(Bytes()), bytes);
    EXPECT_EQ(entries(), 3u);
}

TEST_F(FileTest, FailingRenameAndReadOnlyFolderLeaveTheOldFile)
{
    const auto inTheWay = [&](ByteSink& sink) {
        fs::create_directory(path("wall"));
        return sink.append(fresh);
    };
    EXPECT_FALSE(produceFileAtomically(path("wall"), inTheWay));
    EXPECT_EQ(entries(), 1u) << "no other file is left";

    ASSERT_TRUE(writeFileAtomically(path("old"), old));
    fs::permissions(path("old"), fs::perms(0666));
    fs::permissions(folder, fs::perms(0555));
    ::setfsuid(65534); // the superuser may write anywhere
    const auto refused = writeFileAtomically(path("old"), fresh);
    const bool kept = readFile(path("old")).value() == old;
    const auto inPlace = produceFileInPlace(path("old"), [&](ByteSink& sink) { return sink.append(fresh); });
    ::setfsuid(::geteuid());
    fs::permissions(folder, fs::perms(0755));
    EXPECT_TRUE(!refused && kept);
    EXPECT_TRUE(inPlace);
    EXPECT_EQ(readFile(path("old")).value(), fresh);
}
