// A lower bound for the run times of the programs: only writes the header.
//   floor lines HEADER COPY    copies HEADER to COPY with one write per line, like idlgen
//   floor whole HEADER COPY    copies it with one write, like idlgen-header
//   floor                      does nothing, to measure the start of a process
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstddef>
#include <cstring>

int main(int argc, char** argv) {
  if (argc < 4) return 0;
  const bool whole = std::strcmp(argv[1], "whole") == 0;
  const int header = open(argv[2], O_RDONLY);
  struct stat status;
  if (header < 0 || fstat(header, &status) != 0) return 1;
  const auto size = static_cast<std::size_t>(status.st_size);
  void* const text = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, header, 0);
  const int copy = open(argv[3], O_WRONLY | O_CREAT | O_TRUNC, 0666);
  if (text == MAP_FAILED || copy < 0) return 1;

  const char* const end = static_cast<const char*>(text) + size;
  for (const char* line = static_cast<const char*>(text); line != end;) {
    const char* next = end;
    if (!whole) {
      const void* const feed = std::memchr(line, '\n', static_cast<std::size_t>(end - line));
      if (feed != nullptr) next = static_cast<const char*>(feed) + 1;
    }
    if (write(copy, line, static_cast<std::size_t>(next - line)) < 0) return 1;
    line = next;
  }
  return 0;
}
