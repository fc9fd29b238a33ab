// SPDX-License-Identifier: MIT
//
// durable_write FILE: replaces the file by its own bytes in the plainest way that survives a crash,
// once for each line on standard input, and answers with the microseconds that it took.
#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

namespace {

bool writeAll(int file, const std::string& bytes)
{
    std::size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::write(file, bytes.data() + written, bytes.size() - written);
        if (count <= 0)
            return false;
        written += static_cast<std::size_t>(count);
    }
    return true;
}

bool replace(const std::string& path, const std::string& bytes)
{
    const std::string temporary = path + ".floor";
    const int file = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (file < 0)
        return false;
    const bool isWritten = writeAll(file, bytes) && ::fdatasync(file) == 0;
    ::close(file);
    return isWritten && ::rename(temporary.c_str(), path.c_str()) == 0;
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 2)
        return 1;
    std::ifstream source(argv[1], std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(source), {});
    for (std::string line; std::getline(std::cin, line);) {
        const auto start = std::chrono::steady_clock::now();
        if (!replace(argv[1], bytes))
            return 1;
        const auto taken = std::chrono::steady_clock::now() - start;
        std::cout << std::chrono::duration_cast<std::chrono::microseconds>(taken).count()
                  << std::endl;
    }
}
