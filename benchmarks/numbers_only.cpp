// The floor for a converted log: reads every number of the CSV on standard input and prints it
// again, in between nothing but its separators.
#include <array>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <string_view>
#include <vector>

namespace {

constexpr std::size_t kBlock = 1 << 16;
constexpr std::size_t kLongestNumber = 24;

bool IsSeparator(char c) { return c == ',' || c == '\n'; }

// Prints the rows from `at` to `end` to `out`, and returns where that ends.
char* PrintRows(const char* at, const char* end, char* out) {
  while (at < end) {
    double number = 0;
    const auto [stop, status] = std::from_chars(at, end, number);
    if (status == std::errc() && IsSeparator(*stop)) {
      out = std::to_chars(out, out + kLongestNumber, number).ptr;
      at = stop;
    }
    while (!IsSeparator(*at)) {
      *out++ = *at++;
    }
    *out++ = *at++;
  }
  return out;
}

}  // namespace

int main() {
  std::array<char, kBlock> in{};
  std::vector<char> out(kBlock / 2 * (kLongestNumber + 1));  // a number and its separator take two
  std::size_t held = 0;
  while (const std::size_t count = std::fread(&in[held], 1, in.size() - held, stdin)) {
    held += count;
    const std::size_t whole = std::string_view(in.data(), held).rfind('\n') + 1;
    const char* const stop = PrintRows(in.data(), in.data() + whole, out.data());
    std::fwrite(out.data(), 1, static_cast<std::size_t>(stop - out.data()), stdout);
    held -= whole;
    std::memmove(in.data(), in.data() + whole, held);
  }
  return held > 0 ? 1 : 0;
}
