// SPDX-License-Identifier: MIT
//
// kills [COUNT [SEED]]: kills the program (200 times unless said) at a random moment while a user works with it, and
// starts it again each time. Fails when a file that is renamed into its place is not whole, or when work for which
// there was a copy is not offered or cannot be opened. Each run is a fork of this process.
#include "app/project_file.h"
#include "base/file.h"
#include "random_user.h"
#include "ui/recovery/recovery.h"

#include <QApplication>
#include <QDirIterator>
#include <QImage>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace wallgrid;

namespace {

constexpr int kMostActions = 100;
constexpr unsigned kLongestAction = 20'000; ///< microseconds
constexpr unsigned kMostWrites = 40;

/// What the next start finds; its bits are the exit code of that run.
enum Found { Offer = 1, SavedProject = 2, Damage = 4 };

/// So many writes to files are done before the process kills itself in the next; negative for none.
int writesToGo = -1;

[[noreturn]] void work(const QString& folder, unsigned seed, int writes, volatile int* actions)
{
    qputenv("TMPDIR", folder.toUtf8()); // what the program under test leaves there goes with the folder
    ProgramUnderTest program;
    program.application.keepRecovery(folder + "/recovery");
    RandomUser user(program, folder, seed);
    writesToGo = writes;
    for (;;) {
        user.act();
        *actions = *actions + 1;
    }
}

int damage(const char* what)
{
    std::fprintf(stderr, "%s\n", what);
    return Damage;
}

int lookAtFiles(const QString& folder)
{
    int found = 0;
    if (const auto bytes = readFile((folder + "/stage.mpr").toStdString())) {
        found |= SavedProject;
        if (!readProject(*bytes))
            found |= damage("the project is not whole");
    }
    if (QFile::exists(folder + "/stage.png") && QImage(folder + "/stage.png").isNull())
        found |= damage("the PNG is not whole");
    return found;
}

int lookAtRecovery(const QString& folder)
{
    const bool expected =
        QDirIterator(folder + "/recovery", {"project.mpr"}, QDir::Files, QDirIterator::Subdirectories).hasNext();
    ProgramUnderTest program;
    program.application.keepRecovery(folder + "/recovery");
    Recovery& recovery = *program.application.recovery();
    if (recovery.offer().has_value() != expected)
        return damage(expected ? "a copy is not offered" : "there is an offer without a copy");
    if (!expected)
        return 0;
    recovery.restore();
    return recovery.offer() ? damage("the copy cannot be opened") : Offer;
}

template <class Body>
pid_t inAnotherProcess(Body body)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(body());
    return child;
}

bool hasEnded(pid_t process)
{
    siginfo_t info{};
    return ::waitid(P_PID, static_cast<id_t>(process), &info, WEXITED | WNOWAIT | WNOHANG) != 0 || info.si_pid != 0;
}

} // namespace

/// Stands before the C library's, for Qt as well.
extern "C" ssize_t write(int fd, const void* bytes, std::size_t count)
{
    struct stat info {};
    const bool last = writesToGo >= 0 && ::fstat(fd, &info) == 0 && S_ISREG(info.st_mode) && writesToGo-- == 0;
    const long written = ::syscall(SYS_write, fd, bytes, last ? count / 2 : count);
    if (last)
        ::raise(SIGKILL);
    return written;
}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const int kills = argc > 1 ? std::atoi(argv[1]) : 200;
    std::mt19937 engine(argc > 2 ? static_cast<unsigned>(std::atoi(argv[2])) : 1);
    const auto random = [&] { return static_cast<unsigned>(engine()); };
    auto* const actions = static_cast<volatile int*>(
        ::mmap(nullptr, sizeof(int), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));

    int offers = 0, withFiles = 0, damaged = 0;
    for (int i = 0; i < kills; ++i) {
        const QTemporaryDir folder;
        *actions = 0;
        const unsigned seed = random();
        const int writes = i % 2 == 0 ? static_cast<int>(random() % kMostWrites) : -1;
        const pid_t user = inAnotherProcess([&]() -> int { work(folder.path(), seed, writes, actions); });
        if (writes < 0) {
            // Counted in actions, so that a slow machine has as much to lose; then at any moment of one.
            const int last = 1 + static_cast<int>(random() % kMostActions);
            while (*actions < last && !hasEnded(user))
                ::usleep(100);
            ::usleep(random() % kLongestAction);
            ::kill(user, SIGKILL);
        }
        int status = 0;
        ::waitpid(user, &status, 0);
        int found = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL ? 0 : damage("the program ended by itself");
        ::waitpid(inAnotherProcess([&] { return lookAtFiles(folder.path()) | lookAtRecovery(folder.path()); }), &status,
                  0);
        found |= WIFEXITED(status) ? WEXITSTATUS(status) : damage("the next start crashed");
        offers += (found & Offer) != 0;
        withFiles += (found & SavedProject) != 0;
        damaged += (found & Damage) != 0;
    }
    std::printf("%d kills: %d left work that was offered and opened, %d left project files, %d lost something\n", kills,
                offers, withFiles, damaged);
    // A run in which nothing was there to be lost shows nothing.
    return damaged == 0 && offers > kills / 10 && withFiles > kills / 4 ? EXIT_SUCCESS : EXIT_FAILURE;
}
