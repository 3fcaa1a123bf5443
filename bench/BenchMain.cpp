// The benchmarks' entry: the process allocates as the CAD host's process does.
#include <benchmark/benchmark.h>

#include "platform/ProcessHeap.h"

int main(int argc, char** argv) {
  kvt1::platform::useHostProcessHeap();
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
