// SPDX-License-Identifier: MIT
#include "base/file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace wallgrid {

namespace {

constexpr off_t kMaximumFileSize = off_t{1} << 30;
constexpr std::size_t kBytesAReport = std::size_t{16} << 20;
constexpr std::size_t kBytesAPiece = std::size_t{1} << 20;

/// What a failed call says to people, as far as they can do something about it.
std::string systemMessage(int error)
{
    switch (error) {
    case ENAMETOOLONG:
        return "the name is too long";
    case ENOSPC:
    case EDQUOT:
        return "the disk is full";
    default:
        return std::generic_category().message(error);
    }
}

/// The same of a call that should have opened a "file" or a "folder", to be "read" or "written to".
std::string openingMessage(int error, const std::string& what, const std::string& use)
{
    switch (error) {
    case ENOENT:
    case ENOTDIR:
        return "there is no such " + what;
    case EACCES:
    case EPERM:
    case EROFS:
        return "the " + what + " cannot be " + use;
    default:
        return systemMessage(error);
    }
}

tl::unexpected<Error> notRegular(mode_t mode)
{
    return failure(S_ISDIR(mode) ? "this is a folder, not a file" : "this is a device or a pipe, not a file");
}

class FileDescriptor {
public:
    explicit FileDescriptor(int fd)
        : m_fd(fd)
    {
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() { close(); }

    int get() const { return m_fd; }
    bool close()
    {
        const int fd = std::exchange(m_fd, -1);
        return fd < 0 || ::close(fd) == 0;
    }

private:
    int m_fd;
};

/// Writes all bytes, however many the system takes at a time: write(rest, done) returns what write(2) does.
template <class Write>
Expected<void> writeAll(std::span<const std::uint8_t> bytes, const Write& write)
{
    for (std::size_t done = 0; done < bytes.size();) {
        const ssize_t count = write(bytes.subspan(done), done);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return failure(systemMessage(errno));
        done += static_cast<std::size_t>(count);
    }
    return {};
}

Expected<void> appendInSteps(ByteSink& sink, std::span<const std::uint8_t> bytes, const Report& report)
{
    for (std::size_t done = 0; done < bytes.size(); done += kBytesAReport) {
        if (!goesOn(report, static_cast<double>(done) / static_cast<double>(bytes.size())))
            return cancelled();
        const auto step = bytes.subspan(done, std::min(bytes.size() - done, kBytesAReport));
        if (auto written = sink.append(step); !written)
            return written;
    }
    return {};
}

/// Makes a file of a name that nobody has yet, and puts its path in `path`. Unlike mkostemp(3) it lets the system take
/// the umask off the mode: a process can read its umask only by setting it, for all its threads.
int makeTemporaryFile(const std::filesystem::path& folder, mode_t mode, std::string& path)
{
    constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz234567";
    constexpr int kMostTries = 100;
    path = (folder / ".wallgrid-").string();
    const std::size_t start = path.size();
    int fd = -1;
    for (int i = 0; i < kMostTries && fd < 0 && (i == 0 || errno == EEXIST); ++i) {
        std::array<std::uint8_t, 6> letters{};
        if (::getentropy(letters.data(), letters.size()) != 0)
            return -1;
        path.resize(start);
        for (const std::uint8_t letter : letters)
            path += kLetters[letter % kLetters.size()];
        fd = ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    }
    return fd;
}

/// A new file in the first of the folders that lets us make one. Where it fails for another reason, such as a full
/// disk, the next folder is not tried: the target would fail in the same way, half written. It goes when this object
/// does, also when an exception passes, unless it was given another name.
class TemporaryFile {
public:
    TemporaryFile(std::initializer_list<std::filesystem::path> folders, mode_t mode)
        : m_file(make(folders, mode))
    {
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile()
    {
        if (m_isThere)
            ::unlink(m_path.c_str());
    }

    int descriptor() const { return m_file.get(); }

    /// Fails also when no folder took a file.
    Expected<void> fill(const std::function<Expected<void>(ByteSink&)>& produce)
    {
        if (!m_isThere)
            return failure(openingMessage(errno, "folder", "written to"));
        DescriptorSink sink(descriptor());
        return produce(sink);
    }

    bool rename(const std::filesystem::path& path)
    {
        const bool renamed = m_file.close() && ::rename(m_path.c_str(), path.c_str()) == 0;
        m_isThere = !renamed;
        return renamed;
    }

private:
    int make(std::initializer_list<std::filesystem::path> folders, mode_t mode)
    {
        int fd = -1;
        for (auto folder = folders.begin(); fd < 0 && folder != folders.end(); ++folder) {
            if (folder != folders.begin() && errno != EACCES && errno != EROFS)
                break;
            fd = makeTemporaryFile(*folder, mode, m_path);
        }
        m_isThere = fd >= 0;
        return fd;
    }

    std::string m_path;
    bool m_isThere = false;
    FileDescriptor m_file; // the last, because making it fills the others
};

/// Copies a whole file over an older one.
Expected<void> copyOver(int from, int to)
{
    DescriptorSink target(to);
    Bytes piece(kBytesAPiece);
    off_t done = 0;
    ssize_t count = 0;
    while ((count = ::pread(from, piece.data(), piece.size(), done)) > 0) {
        const auto bytes = std::span(piece).first(static_cast<std::size_t>(count));
        if (auto written = target.replace(static_cast<std::uint64_t>(done), bytes); !written)
            return written;
        done += count;
    }
    return count == 0 && ::ftruncate(to, done) == 0 ? Expected<void>() : failure(systemMessage(errno));
}

} // namespace

Expected<Bytes> readFile(const std::string& path)
{
    // To open a device may set something off already, and to open a FIFO wakes who waits at its other end.
    struct stat info {};
    if (::stat(path.c_str(), &info) == 0 && !S_ISREG(info.st_mode))
        return notRegular(info.st_mode);
    // O_NONBLOCK: opening a FIFO that has just come must not wait for a writer.
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (file.get() < 0 || ::fstat(file.get(), &info) != 0)
        return failure(openingMessage(errno, "file", "read"));
    if (!S_ISREG(info.st_mode))
        return notRegular(info.st_mode);
    if (info.st_size > kMaximumFileSize)
        return failure("the file is larger than 1 GiB");

    Bytes bytes(static_cast<std::size_t>(info.st_size));
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        const ssize_t count = ::read(file.get(), bytes.data() + filled, bytes.size() - filled);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return failure(systemMessage(errno));
        if (count == 0)
            break;
        filled += static_cast<std::size_t>(count);
    }
    bytes.resize(filled);
    return bytes;
}

std::optional<FileIdentity> fileIdentity(const std::string& path)
{
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0)
        return std::nullopt;
    return FileIdentity(info.st_dev, info.st_ino);
}

Expected<void> DescriptorSink::append(std::span<const std::uint8_t> bytes)
{
    return writeAll(bytes, [this](auto rest, std::size_t) { return ::write(m_fd, rest.data(), rest.size()); });
}

Expected<void> DescriptorSink::replace(std::uint64_t offset, std::span<const std::uint8_t> bytes)
{
    return writeAll(bytes, [&](auto rest, std::size_t done) {
        return ::pwrite(m_fd, rest.data(), rest.size(), static_cast<off_t>(offset + done));
    });
}

Expected<void> writeFileAtomically(const std::string& path, std::span<const std::uint8_t> bytes, const Report& report)
{
    return produceFileAtomically(path, [&](ByteSink& sink) { return appendInSteps(sink, bytes, report); });
}

Expected<void> produceFileAtomically(const std::string& path, const std::function<Expected<void>(ByteSink&)>& produce)
{
    std::error_code error;
    const std::filesystem::path resolved = std::filesystem::weakly_canonical(path, error);
    if (error)
        return failure(openingMessage(error.value(), "folder", "read"));

    struct stat info {};
    const bool replaces = ::stat(resolved.c_str(), &info) == 0;
    if (replaces && !S_ISREG(info.st_mode))
        return notRegular(info.st_mode);

    TemporaryFile file({resolved.parent_path()}, replaces ? 0600 : 0666);
    if (auto written = file.fill(produce); !written)
        return written;
    if ((replaces && ::fchmod(file.descriptor(), info.st_mode & 07777) != 0) || ::fsync(file.descriptor()) != 0 ||
        !file.rename(resolved))
        return failure(systemMessage(errno));
    // The new name is on the disk only when the folder is; a file system that cannot flush folders still has the file.
    const FileDescriptor folder(::open(resolved.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.get() >= 0)
        ::fsync(folder.get());
    return {};
}

Expected<void> produceFileInPlace(const std::string& path, const std::function<Expected<void>(ByteSink&)>& produce)
{
    std::error_code error;
    const std::filesystem::path resolved = std::filesystem::weakly_canonical(path, error);
    struct stat info {};
    if (error || ::stat(resolved.c_str(), &info) != 0)
        return produceFileAtomically(path, produce);
    if (!S_ISREG(info.st_mode))
        return notRegular(info.st_mode);
    FileDescriptor target(::open(resolved.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (target.get() < 0)
        return failure(openingMessage(errno, "file", "written to"));

    // The old file may be written even where its folder takes no new one.
    TemporaryFile file({resolved.parent_path(), std::filesystem::temp_directory_path(error)}, 0600);
    if (auto written = file.fill(produce); !written)
        return written;
    auto copied = copyOver(file.descriptor(), target.get());
    if (copied && !target.close())
        copied = failure(systemMessage(errno));
    if (!copied && ::fchmod(file.descriptor(), info.st_mode & 07777) == 0 && file.rename(resolved))
        copied = {};
    return copied;
}

} // namespace wallgrid
