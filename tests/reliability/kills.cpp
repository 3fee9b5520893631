// SPDX-License-Identifier: MIT
//
// kills [COUNT [SEED]]: kills the program (200 times unless said) at a random moment while a user works with it, and
// starts it again each time. Fails when a file that is renamed into its place is not whole, or when work for which
// there was a copy is not offered or cannot be opened. Each run is a fork of this process.
#include "app/project_file.h"
#include "base/file.h"
#include "random_user.h"
#include "ui/recovery/recovery.h"

#include <QDirIterator>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sys/wait.h>
#include <unistd.h>

using namespace wallgrid;

namespace {

constexpr unsigned kMostActions = 100;
constexpr unsigned kLongestAction = 20'000; ///< microseconds

/// What the next start finds; its bits are the exit code of that run.
enum Found { Offer = 1, SavedProject = 2, Damage = 4 };

[[noreturn]] void work(const QString& folder, unsigned seed)
{
    qputenv("TMPDIR", folder.toUtf8()); // what the program under test leaves there goes with the folder
    ProgramUnderTest program;
    program.application.keepRecovery(folder + "/recovery");
    RandomUser user(program, folder, seed);
    // Counted in actions, so that a slow machine has as much to lose; then at any moment of one, as abruptly as can be.
    for (unsigned left = seed % kMostActions;; --left) {
        if (left == 0)
            ::ualarm(1 + seed / kMostActions % kLongestAction, 0);
        user.act();
    }
}

int lookAfterwards(const QString& folder)
{
    const auto bytes = readFile((folder + "/stage.mpr").toStdString());
    int found = bytes ? SavedProject : 0;
    if ((bytes && !readProject(*bytes)) ||
        (QFile::exists(folder + "/stage.png") && QImage(folder + "/stage.png").isNull()))
        found |= Damage;
    const bool copied =
        QDirIterator(folder + "/recovery", {"project.mpr"}, QDir::Files, QDirIterator::Subdirectories).hasNext();
    ProgramUnderTest program;
    program.application.keepRecovery(folder + "/recovery");
    Recovery& recovery = *program.application.recovery();
    if (recovery.offer().has_value() != copied)
        return found | Damage;
    if (copied)
        recovery.restore();
    return found | (recovery.offer() ? Damage : copied ? Offer : 0);
}

template <class Body>
pid_t inAnotherProcess(Body body)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(body());
    return child;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const int kills = argc > 1 ? std::atoi(argv[1]) : 200;
    std::mt19937 random(argc > 2 ? static_cast<unsigned>(std::atoi(argv[2])) : 1);
    int offers = 0, withFiles = 0, damaged = 0;
    for (int i = 0; i < kills; ++i) {
        const QTemporaryDir folder;
        const auto seed = static_cast<unsigned>(random());
        const pid_t user = inAnotherProcess([&]() -> int { work(folder.path(), seed); });
        int status = 0;
        ::waitpid(user, &status, 0);
        const bool killed = WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM;
        ::waitpid(inAnotherProcess([&] { return lookAfterwards(folder.path()); }), &status, 0);
        const int found = killed && WIFEXITED(status) ? WEXITSTATUS(status) : Damage;
        offers += (found & Offer) != 0;
        withFiles += (found & SavedProject) != 0;
        damaged += (found & Damage) != 0;
    }
    std::printf("%d kills: %d left work that was offered and opened, %d left project files, %d lost something\n", kills,
                offers, withFiles, damaged);
    // A run in which nothing was there to be lost shows nothing.
    return damaged == 0 && offers > kills / 10 && withFiles > kills / 4 ? EXIT_SUCCESS : EXIT_FAILURE;
}
