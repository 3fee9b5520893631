// SPDX-License-Identifier: MIT
#include "base/file.h"
#include "benchmarks.h"
#include "documents.h"
#include "plain_psd.h"
#include "same_bytes.h"

#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <memory>
#include <unistd.h>

namespace wallgrid::bench {

namespace {

struct Task {
    std::string size;
    int width;
    int height;
    int screens;
    double bytesAtMost;  ///< of the plain encoder's time
    double exportAtMost; ///< the same, with the merged image
    double fileAtMost;   ///< of one write()
};

/// What is measured, and the file it gives.
struct Export {
    explicit Export(const Task& task)
        : document(task.width, task.height, task.screens)
        , writer(document.psdWriter())
        , finished(writer->createPSDData())
    {
        requireSame(finished, plainPsd(*writer), "PSD " + task.size);
    }

    Document document;
    std::shared_ptr<KPPSDWriter> writer;
    ByteBuffer finished;
};

/// A new file on the disk where temporary files are. What it takes to remove it again is not measured.
class NewFile {
public:
    explicit NewFile(benchmark::State* state)
        : m_state(state)
        , m_path(std::filesystem::temp_directory_path() / ("wallgrid-bench-" + std::to_string(getpid()) + ".psd"))
        , m_fd(::open(m_path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600))
    {
        require(m_fd >= 0);
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile()
    {
        ::close(m_fd);
        if (m_state)
            m_state->PauseTiming();
        std::filesystem::remove(m_path);
        if (m_state)
            m_state->ResumeTiming();
    }

    int descriptor() const { return m_fd; }

    void require(bool success) const
    {
        if (success)
            return;
        std::perror(m_path.c_str());
        std::exit(2);
    }

private:
    benchmark::State* m_state;
    std::filesystem::path m_path;
    int m_fd;
};

void writeOurs(Export& exported, const NewFile& file)
{
    DescriptorSink sink(file.descriptor());
    KPPSDError error;
    exported.writer->writePSDOn(sink, &error);
    file.require(!error);
}

void writeFinished(Export& exported, const NewFile& file)
{
    const ByteBuffer& bytes = exported.finished;
    file.require(::write(file.descriptor(), bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()));
}

/// Our file must be the finished one.
void checkFile(Export& exported)
{
    const NewFile file(nullptr);
    writeOurs(exported, file);
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(::lseek(file.descriptor(), 0, SEEK_END)));
    file.require(::pread(file.descriptor(), bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size()));
    requireSame(exported.finished, bytes, "The file");
}

void addDocument(std::vector<Ratio>& ratios, const Task& task)
{
    // Made once, when first measured.
    const auto get = [=, made = std::make_shared<std::unique_ptr<Export>>()]() -> Export& {
        if (!*made) {
            *made = std::make_unique<Export>(task);
            checkFile(**made);
        }
        return **made;
    };
    const std::string name = "PSD " + task.size;
    // The plain encoder takes seconds for the large documents.
    const int repetitions = task.width > 3840 ? 3 : 9;
    const auto add = [&](const std::string& what, const std::function<void(Export&, benchmark::State&)>& run) {
        benchmark::RegisterBenchmark((name + what).c_str(), [=](benchmark::State& state) {
            Export& exported = get();
            for (auto _ : state)
                run(exported, state);
        })->Repetitions(repetitions);
    };
    const auto addMaking = [&](const std::string& what, std::size_t (*make)(Export&)) {
        add(what, [=](Export& exported, benchmark::State&) { benchmark::DoNotOptimize(make(exported)); });
    };
    addMaking("/ours", [](Export& e) { return e.writer->createPSDData().size(); });
    addMaking("/plain", [](Export& e) { return plainPsd(*e.writer).size(); });
    addMaking("/ours with layers", [](Export& e) { return e.document.psdWriter()->createPSDData().size(); });
    addMaking("/plain with layers", [](Export& e) { return plainPsd(*e.document.psdWriter()).size(); });
    add("/file", [](Export& e, benchmark::State& state) { writeOurs(e, NewFile(&state)); });
    add("/write", [](Export& e, benchmark::State& state) { writeFinished(e, NewFile(&state)); });
    ratios.push_back({name + ": plain encoder, channels twice", name + "/ours", name + "/plain", task.bytesAtMost});
    ratios.push_back({name + " with its merged image: the same, plain encoder", name + "/ours with layers",
                      name + "/plain with layers", task.exportAtMost});
    ratios.push_back({name + " to a file: one write() of its bytes", name + "/file", name + "/write", task.fileAtMost});
}

} // namespace

void addPsd(std::vector<Ratio>& ratios)
{
    addDocument(ratios, {"3840x2160", 3840, 2160, 20, 0.15, 0.4, 5});
    addDocument(ratios, {"16384x8192", 16384, 8192, 60, 0.1, 0.25, 2});
    addDocument(ratios, {"30000x4000", 30000, 4000, 100, 0.1, 0.25, 2});
}

} // namespace wallgrid::bench
