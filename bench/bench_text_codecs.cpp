/// \file
/// Bytes as text, and their checksum.
#include "support/Ratios.h"

#include <kyr/text/KyrBase64.h>
#include <kyr/text/KyrCRC16.h>

#include <benchmark/benchmark.h>
#include <openssl/evp.h>
#include <boost/crc.hpp>

#include <random>

namespace {

using Kyr::Base64;
using Kyr::CRC16;
using KyrBench::Ratio;

using Bytes = Kyr::StructVector<unsigned char>;

constexpr int plainSize = 99999;  // whole groups, as the peers take no others

Bytes plainBytes() {
  std::mt19937 random(64);
  Bytes bytes(plainSize);
  for (unsigned char& byte : bytes) {
    byte = static_cast<unsigned char>(random());
  }
  return bytes;
}

Bytes encodedBytes() {
  Bytes text;
  Base64::encode(plainBytes(), &text);
  return text;
}

void base64Encode(benchmark::State& state) {
  const Bytes plain = plainBytes();
  Bytes text;
  for (auto _ : state) {
    text.clear();
    Base64::encode(plain, &text);
    benchmark::DoNotOptimize(text.data());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * plainSize);
}
void base64EncodeEvp(benchmark::State& state) {
  const Bytes plain = plainBytes();
  Bytes text(plainSize / 3 * 4 + 1);
  for (auto _ : state) {
    EVP_EncodeBlock(text.data(), plain.data(), plainSize);
    benchmark::DoNotOptimize(text.data());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * plainSize);
}

void base64Decode(benchmark::State& state) {
  const Bytes text = encodedBytes();
  Bytes plain;
  for (auto _ : state) {
    plain.clear();
    Base64::decode(text, &plain);
    benchmark::DoNotOptimize(plain.data());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * plainSize);
}
void base64DecodeEvp(benchmark::State& state) {
  const Bytes text = encodedBytes();
  Bytes plain(plainSize);
  for (auto _ : state) {
    EVP_DecodeBlock(plain.data(), text.data(), static_cast<int>(text.size()));
    benchmark::DoNotOptimize(plain.data());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * plainSize);
}

void crc16(benchmark::State& state) {
  const Bytes plain = plainBytes();
  for (auto _ : state) {
    benchmark::DoNotOptimize(CRC16::compute(plain));
  }
  state.SetBytesProcessed(state.iterations() * plainSize);
}
void crc16Boost(benchmark::State& state) {
  const Bytes plain = plainBytes();
  for (auto _ : state) {
    boost::crc_optimal<16, 0x1021, 0, 0, false, false> peer;
    peer.process_bytes(plain.data(), plain.size());
    benchmark::DoNotOptimize(peer.checksum());
  }
  state.SetBytesProcessed(state.iterations() * plainSize);
}

BENCHMARK(base64Encode);
BENCHMARK(base64EncodeEvp);
BENCHMARK(base64Decode);
BENCHMARK(base64DecodeEvp);
BENCHMARK(crc16);
BENCHMARK(crc16Boost);

const Ratio encoding("Base64::encode against OpenSSL's EVP", "base64Encode", "base64EncodeEvp",
                     1.2);
const Ratio decoding("Base64::decode against OpenSSL's EVP", "base64Decode", "base64DecodeEvp", 1);
const Ratio checksum("CRC16::compute against Boost.CRC", "crc16", "crc16Boost", 5);

}  // namespace
