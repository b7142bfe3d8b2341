// Mutates good inputs for as many seconds as it is told and runs each through the target. A run is repeated, to its end, with
// the seed that it names: data_files_fuzz SECONDS SEED.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <random>

#include "fuzz/fuzz_target.h"

namespace {

using Random = std::mt19937;

std::string Mutated(std::string input, const std::vector<std::string>& seeds, Random& random) {
  for (unsigned count = 1 + random() % 6; count > 0 && !input.empty(); --count) {
    const std::size_t at = random() % 3 == 0 ? random() % std::min<std::size_t>(input.size(), 64) : random() % input.size();
    const std::size_t length = std::min<std::size_t>(1 + random() % 40, input.size() - at);
    switch (random() % 7) {
      case 0:
        input[at] = static_cast<char>(random());
        break;
      case 1:
        input[at] = static_cast<char>(input[at] ^ (1U << random() % 8));
        break;
      case 2:
        input[at] = static_cast<char>(random() % 2 == 0 ? 0 : 0xFF);
        break;
      case 3:
        input.erase(at, length);
        break;
      case 4:
        input.insert(at, input.substr(random() % input.size(), length));
        break;
      case 5:
        input.replace(at, length, input.substr(random() % input.size(), length));
        break;
      default: {
        const std::string& other = seeds[random() % seeds.size()];
        input = input.substr(0, at) + other.substr(std::min(at, other.size()));
      }
    }
  }
  return input;
}

}  // namespace

int main(int argc, char** argv) {
  const double seconds = argc > 1 ? std::atof(argv[1]) : 10;
  const unsigned start = argc > 2 ? static_cast<unsigned>(std::atoi(argv[2])) : std::random_device()();
  std::printf("seed %u\n", start);
  std::fflush(stdout);  // it must be known after a crash as well
  Random random(start);
  const auto seeds = FuzzSeeds();
  const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
  unsigned long runs = 0;
  for (; std::chrono::steady_clock::now() < end || runs < seeds.size(); ++runs) {
    // Each seed once as it is.
    const std::string input = runs < seeds.size() ? seeds[runs] : Mutated(seeds[random() % seeds.size()], seeds, random);
    try {
      LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
    } catch (const std::exception& error) {
      std::printf("input %lu: %s\n", runs, error.what());
      return 1;
    }
  }
  std::printf("%lu inputs in %.0f seconds\n", runs, seconds);
  return 0;
}
