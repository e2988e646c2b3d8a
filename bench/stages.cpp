// Measures how the time of each stage grows with the number of messages.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>

#include "generator/generator.h"
#include "reader/idl.h"
#include "schema/parser.h"
#include "schema/schema.h"

namespace zentho::idlgen {
namespace {

const std::string stem = "/dev/shm/idlgen_stages_" + std::to_string(getpid());
const std::string path = stem + ".idl";

/// Deletes the files at the end.
struct Cleaner {
  ~Cleaner() {
    for (const char* extension : {".idl", ".h"}) std::remove((stem + extension).c_str());
  }
} cleaner;

/// Writes a file with the number of messages that the benchmark asks for.
void writeMessages(const benchmark::State& state) {
  std::ofstream file(path);
  for (int i = 0; i < state.range(0); ++i) {
    file << "message Message" << i << " {\n";
    for (int j = 0; j < 8; ++j) file << "    field" << j << (j % 2 ? ": int32\n" : ": [string]\n");
    file << "}\n";
  }
}

IDL Loaded() {
  IDL idl;
  idl.load(path);
  return idl;
}

Schema Parsed() {
  Schema schema;
  Parser().parse(Loaded(), schema);
  return schema;
}

void load(benchmark::State& state) {
  writeMessages(state);
  for (auto _ : state) benchmark::DoNotOptimize(Loaded());
  state.SetComplexityN(state.range(0));
}

void parse(benchmark::State& state) {
  writeMessages(state);
  const IDL idl = Loaded();
  for (auto _ : state) {
    Schema schema;
    Parser().parse(idl, schema);
    benchmark::DoNotOptimize(schema);
  }
  state.SetComplexityN(state.range(0));
}

void dump(benchmark::State& state) {
  writeMessages(state);
  const Schema schema = Parsed();
  for (auto _ : state) schema.output();
  state.SetComplexityN(state.range(0));
}

void generate(benchmark::State& state) {
  writeMessages(state);
  const Schema schema = Parsed();
  for (auto _ : state) Generator(schema).generate(path);
  state.SetComplexityN(state.range(0));
}

BENCHMARK(load)->RangeMultiplier(4)->Range(64, 16384)->Complexity();
BENCHMARK(parse)->RangeMultiplier(4)->Range(64, 16384)->Complexity();
BENCHMARK(dump)->RangeMultiplier(4)->Range(64, 16384)->Complexity();
BENCHMARK(generate)->RangeMultiplier(4)->Range(64, 16384)->Complexity();

}  // namespace
}  // namespace zentho::idlgen

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  // Discards the output of the stages. The report goes to standard error.
  if (std::freopen("/dev/null", "w", stdout) == nullptr) return 1;
  benchmark::ConsoleReporter report;
  report.SetOutputStream(&std::cerr);
  benchmark::RunSpecifiedBenchmarks(&report);
  return 0;
}
