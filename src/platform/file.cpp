// SPDX-License-Identifier: MIT
#include "platform/file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace wallgrid {

namespace {

constexpr off_t kMaximumFileSize = off_t{1} << 30;
constexpr auto kNotRegular = "not a regular file";
constexpr std::size_t kBytesAReport = std::size_t{16} << 20;

std::string systemMessage(int error)
{
    return std::generic_category().message(error);
}

/// To open a device may set something off already, and to open a FIFO wakes who waits at its other end.
bool isSpecial(const std::string& path)
{
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0 && !S_ISREG(info.st_mode);
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

/// The mode that a file made by open(2) would have; umask(2) can only be read by setting it.
mode_t defaultMode()
{
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

} // namespace

Expected<Bytes> readFile(const std::string& path)
{
    if (isSpecial(path))
        return failure(kNotRegular);
    // O_NONBLOCK: opening a FIFO that has just come must not wait for a writer.
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat info {};
    if (file.get() < 0 || ::fstat(file.get(), &info) != 0)
        return failure(systemMessage(errno));
    if (!S_ISREG(info.st_mode))
        return failure(kNotRegular);
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
        return failure(error.message());

    mode_t mode = defaultMode();
    struct stat info {};
    if (::stat(resolved.c_str(), &info) == 0) {
        if (!S_ISREG(info.st_mode))
            return failure(kNotRegular);
        mode = info.st_mode & 07777;
    }

    std::string temporary = (resolved.parent_path() / ".wallgrid-XXXXXX").string();
    FileDescriptor file(::mkostemp(temporary.data(), O_CLOEXEC));
    if (file.get() < 0)
        return failure(systemMessage(errno));
    DescriptorSink sink(file.get());
    Expected<void> written = produce(sink);
    if (written && (::fchmod(file.get(), mode) != 0 || ::fsync(file.get()) != 0 || !file.close() ||
                    ::rename(temporary.c_str(), resolved.c_str()) != 0))
        written = failure(systemMessage(errno));
    if (!written) {
        ::unlink(temporary.c_str());
        return written;
    }
    // The new name is on the disk only when the folder is; a file system that cannot flush folders still has the file.
    const FileDescriptor folder(::open(resolved.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.get() >= 0)
        ::fsync(folder.get());
    return {};
}

Expected<void> writeFile(const std::string& path, std::span<const std::uint8_t> bytes, const Report& report)
{
    if (isSpecial(path))
        return failure(kNotRegular);
    // O_NONBLOCK: opening a FIFO that has just come must not wait for a reader.
    FileDescriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0666));
    struct stat info {};
    if (file.get() < 0 || ::fstat(file.get(), &info) != 0)
        return failure(systemMessage(errno));
    if (!S_ISREG(info.st_mode))
        return failure(kNotRegular);
    DescriptorSink sink(file.get());
    Expected<void> written;
    if (::ftruncate(file.get(), 0) == 0)
        written = appendInSteps(sink, bytes, report);
    else
        written = failure(systemMessage(errno));
    if (written && !file.close())
        written = failure(systemMessage(errno));
    if (!written)
        ::unlink(path.c_str());
    return written;
}

} // namespace wallgrid
