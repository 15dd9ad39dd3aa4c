// fuzz_seeds SEEDS CORPUS [RECORDINGS]: makes the inputs that a campaign begins with.
//
// SEEDS is a file of typed seeds: "name: B5 62 ..." a line, '#' begins a comment; an indented line continues the one
// before. RECORDINGS is a directory of recordings of real receivers; each is cut into pieces, with the two
// bytes that choose in front of each piece unless the target is the parser.

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include "Bytes.h"

namespace fs = std::filesystem;

namespace
{

constexpr std::size_t kPiece = 600;

using testsupport::Bytes;

void write(const fs::path& file, const Bytes& bytes)
{
    std::ofstream out(file, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!out) throw std::runtime_error("can't write " + file.string());
}

std::string withoutComment(const std::string& line)
{
    return line.substr(0, line.find('#'));
}

int typedSeeds(const fs::path& seeds, const fs::path& corpus)
{
    std::ifstream in(seeds);
    if (!in) throw std::runtime_error("can't read " + seeds.string());
    int count = 0;
    std::string whole;
    std::string line;
    const auto flush = [&] {
        const std::size_t colon = whole.find(':');
        if (colon != std::string::npos) {
            write(corpus / ("seed-" + whole.substr(0, colon)), testsupport::bytes(whole.substr(colon + 1)));
            ++count;
        }
        whole.clear();
    };
    while (std::getline(in, line)) {
        line = withoutComment(line);
        if (line.empty() || line.find_first_not_of(' ') == std::string::npos) continue;
        if (line[0] != ' ') flush();
        whole += line[0] == ' ' ? line : line + " ";
    }
    flush();
    return count;
}

int pieces(const fs::path& recording, const fs::path& corpus, bool choose)
{
    std::ifstream in(recording, std::ios::binary);
    const Bytes bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    int count = 0;
    for (std::size_t at = 0; at < bytes.size(); at += kPiece, ++count) {
        Bytes piece;
        if (choose) piece = {static_cast<std::uint8_t>(count), 0};
        const std::size_t end = std::min(bytes.size(), at + kPiece);
        piece.insert(piece.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at),
                     bytes.begin() + static_cast<std::ptrdiff_t>(end));
        write(corpus / (recording.stem().string() + "-" + std::to_string(count)), piece);
    }
    return count;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::cerr << "usage: fuzz_seeds SEEDS CORPUS [RECORDINGS]\n";
        return 2;
    }
    try {
        const fs::path seeds = argv[1];
        const fs::path corpus = argv[2];
        int count = typedSeeds(seeds, corpus);
        if (argc > 3 && fs::is_directory(argv[3])) {
            for (const auto& file : fs::directory_iterator(argv[3]))
                if (file.path().extension() == ".log") count += pieces(file.path(), corpus, seeds.stem() != "parser");
        }
        std::cout << count << " seeds\n";
    } catch (const std::exception& error) {
        std::cerr << "fuzz_seeds: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
