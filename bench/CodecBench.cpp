// LZ4e against liblz4 (its default and high-compression levels) on inputs shaped like
// precalculated data: compression ratio, and compression and decompression speed in bytes of
// input per second. Run: longmate_bench --benchmark_filter=Codec
#include <benchmark/benchmark.h>
#include <lz4.h>
#include <lz4hc.h>

#include <functional>
#include <map>
#include <random>
#include <stdexcept>
#include <string>

#include "bench/KrkTable.h"
#include "registers/LZ4e.h"

namespace {

using TBytes = std::vector<unsigned char>;

TBytes RandomBytes(std::size_t n, std::uint32_t seed) {
  std::mt19937 generator(seed);
  TBytes bytes(n);
  for (auto& byte : bytes) byte = static_cast<unsigned char>(generator() >> 24);
  return bytes;
}

// Mostly zeros with small values in runs, like the distances of a larger table.
TBytes SparseDistances(std::size_t n) {
  std::mt19937 generator(2);
  TBytes bytes(n);
  for (std::size_t i = 0; i < n;) {
    const std::size_t run = 1 + generator() % 64;
    const unsigned char value =
        generator() % 4 == 0 ? static_cast<unsigned char>(generator() % 40) : 0;
    for (std::size_t end = std::min(n, i + run); i < end; ++i) bytes[i] = value;
  }
  return bytes;
}

// A 256 KiB block repeated with one byte in a hundred changed: the repeats lie beyond the
// 64 KiB that LZ4's offsets reach.
TBytes DistantRepeats(std::size_t n) {
  const TBytes block = RandomBytes(256 * 1024, 3);
  std::mt19937 generator(4);
  TBytes bytes(n);
  for (std::size_t i = 0; i < n; ++i) {
    bytes[i] =
        generator() % 100 == 0 ? static_cast<unsigned char>(generator()) : block[i % block.size()];
  }
  return bytes;
}

const TBytes& Input(const std::string& name) {
  static std::map<std::string, TBytes> inputs;
  auto found = inputs.find(name);
  if (found != inputs.end()) return found->second;
  const std::map<std::string, std::function<TBytes()>> makers = {
      {"krk-dtm", KrkDistanceToMateTable},
      {"sparse-distances", [] { return SparseDistances(4 << 20); }},
      {"distant-repeats", [] { return DistantRepeats(4 << 20); }},
      {"random", [] { return RandomBytes(1 << 20, 1); }},
  };
  return inputs[name] = makers.at(name)();
}

struct TCodec {
  std::function<TBytes(const TBytes&)> compress;
  std::function<void(const TBytes& packed, TBytes& output)> decompress;
};

TBytes Lz4Compress(const TBytes& input, int level) {
  TBytes packed(static_cast<std::size_t>(LZ4_compressBound(static_cast<int>(input.size()))));
  const char* source = reinterpret_cast<const char*>(input.data());
  char* target = reinterpret_cast<char*>(packed.data());
  const int size = static_cast<int>(input.size()), capacity = static_cast<int>(packed.size());
  const int n = level == 0 ? LZ4_compress_default(source, target, size, capacity)
                           : LZ4_compress_HC(source, target, size, capacity, level);
  if (n <= 0) throw std::runtime_error("LZ4 compression failed");
  packed.resize(static_cast<std::size_t>(n));
  return packed;
}

void Lz4Decompress(const TBytes& packed, TBytes& output) {
  const int n = LZ4_decompress_safe(
      reinterpret_cast<const char*>(packed.data()), reinterpret_cast<char*>(output.data()),
      static_cast<int>(packed.size()), static_cast<int>(output.size()));
  if (n != static_cast<int>(output.size())) throw std::runtime_error("LZ4 decompression failed");
}

const std::map<std::string, TCodec>& Codecs() {
  static const std::map<std::string, TCodec> codecs = {
      {"LZ4e",
       {[](const TBytes& input) {
          TBytes block;
          if (!CompressLZ4e(input.data(), input.size(), block)) throw std::bad_alloc();
          return block;
        },
        [](const TBytes& block, TBytes& output) {
          DecompressLZ4eSequences({block.data() + kLZ4eHeaderSize, block.size() - kLZ4eHeaderSize},
                                  output);
        }}},
      {"lz4", {[](const TBytes& input) { return Lz4Compress(input, 0); }, Lz4Decompress}},
      {"lz4hc-9",
       {[](const TBytes& input) { return Lz4Compress(input, LZ4HC_CLEVEL_DEFAULT); },
        Lz4Decompress}},
      {"lz4hc-12",
       {[](const TBytes& input) { return Lz4Compress(input, LZ4HC_CLEVEL_MAX); }, Lz4Decompress}},
  };
  return codecs;
}

void SetCounters(benchmark::State& state, const TBytes& input, const TBytes& packed) {
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * input.size()));
  state.counters["ratio%"] =
      100.0 * static_cast<double>(packed.size()) / static_cast<double>(input.size());
}

void BM_CodecCompress(benchmark::State& state, const std::string& codec, const std::string& input) {
  const TBytes& bytes = Input(input);
  TBytes packed;
  for (auto _ : state) {
    packed = Codecs().at(codec).compress(bytes);
    benchmark::DoNotOptimize(packed.data());
  }
  SetCounters(state, bytes, packed);
}

void BM_CodecDecompress(benchmark::State& state, const std::string& codec,
                        const std::string& input) {
  const TBytes& bytes = Input(input);
  const TBytes packed = Codecs().at(codec).compress(bytes);
  TBytes output(bytes.size());
  for (auto _ : state) {
    Codecs().at(codec).decompress(packed, output);
    benchmark::DoNotOptimize(output.data());
  }
  if (output != bytes) state.SkipWithError("the output differs from the input");
  SetCounters(state, bytes, packed);
}

const bool bRegistered = [] {
  for (const char* input : {"krk-dtm", "sparse-distances", "distant-repeats", "random"}) {
    for (const auto& [codec, functions] : Codecs()) {
      benchmark::RegisterBenchmark(("BM_CodecCompress/" + codec + "/" + input).c_str(),
                                   BM_CodecCompress, codec, std::string(input))
          ->Unit(benchmark::kMillisecond);
      benchmark::RegisterBenchmark(("BM_CodecDecompress/" + codec + "/" + input).c_str(),
                                   BM_CodecDecompress, codec, std::string(input))
          ->Unit(benchmark::kMillisecond);
    }
  }
  return true;
}();

}  // namespace
