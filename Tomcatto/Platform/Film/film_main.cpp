// Plays films for the application that has started it, until that one closes the input: what it reads there are orders,
// and its output is news.

#include "Platform/Film/FilmDesk.h"
#include "Platform/Film/FilmPipeline.h"
#include "Platform/Film/FrameAllocator.h"

#include <sys/mman.h>
#include <unistd.h>

int main(int argc, char **argv)
{
    using namespace tomcatto;
    if (argc != 3)
        return 2;
    const std::size_t size = std::stoull(argv[2]);
    void *begin = ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, std::stoi(argv[1]), 0);
    // What libraries print must not lie between the news.
    const int output = ::dup(STDOUT_FILENO);
    const std::unique_ptr<std::FILE, int (*)(std::FILE *)> news(output < 0 ? nullptr : ::fdopen(output, "w"),
                                                                std::fclose);
    if (begin == MAP_FAILED || !news || ::dup2(STDERR_FILENO, STDOUT_FILENO) < 0)
        return 4;
    FilmPipeline::load();
    FrameMemory memory(static_cast<std::byte *>(begin), size);
    allocateFramesIn(memory);
    FilmDesk desk(news.get(), memory);
    FilmOrder order;
    while (std::fread(&order, sizeof(order), 1, stdin) == 1) {
        std::string text(static_cast<std::size_t>(order.textSize), '\0');
        if (std::fread(text.data(), 1, text.size(), stdin) != text.size())
            break;
        desk.obey(order, text);
    }
    // Films that hang keep nobody, and the system takes everything back.
    ::_exit(0);
}
