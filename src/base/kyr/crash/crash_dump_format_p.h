/// \file
/// The layout of minidumps, after the declarations of minidumpapiset.h. Numbers have their lowest
/// byte first; an offset counts from the start of the file.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace Kyr::Crash::Dump {

/// What a stream of the file holds.
enum StreamType_t : std::uint32_t {
  ThreadListStream = 3,
  ModuleListStream = 4,
  MemoryListStream = 5,
  ExceptionStream = 6,
  SystemInfoStream = 7,
  MiscInfoStream = 15,
  LinuxCpuInfoStream = 0x4767'0003,
  LinuxStatusStream = 0x4767'0004,
  LinuxReleaseStream = 0x4767'0005,
  LinuxCommandLineStream = 0x4767'0006,
  LinuxAuxiliaryStream = 0x4767'0008,
  LinuxMapsStream = 0x4767'0009,
};

constexpr std::uint32_t signature = 0x504d'444d;         // "MDMP"
constexpr std::uint32_t version = 0xa793;                //
constexpr std::uint32_t platformLinux = 0x8201;          //
constexpr std::uint32_t buildIdSignature = 0x4270'454c;  // the build id of an ELF file follows
constexpr std::uint32_t processIdIsValid = 1;

// In these layouts 64-bit numbers stand at any multiple of four, not only of eight as the machine
// has them.
#pragma pack(push, 4)

struct Location {
  std::uint32_t size;
  std::uint32_t offset;
};

struct Header {
  std::uint32_t signature;
  std::uint32_t version;
  std::uint32_t streamCount;
  std::uint32_t directory;
  std::uint32_t checksum;
  std::uint32_t time;
  std::uint64_t flags;
};
static_assert(sizeof(Header) == 32);

struct Directory {
  std::uint32_t type;
  Location location;
};
static_assert(sizeof(Directory) == 12);

struct MemoryRange {
  std::uint64_t begin;
  Location location;
};
static_assert(sizeof(MemoryRange) == 16);

struct Thread {
  std::uint32_t id;
  std::uint32_t suspendCount;
  std::uint32_t priorityClass;
  std::uint32_t priority;
  std::uint64_t environmentBlock;
  MemoryRange stack;
  Location context;
};
static_assert(sizeof(Thread) == 48);

struct Module {
  std::uint64_t base;
  std::uint32_t size;
  std::uint32_t checksum;
  std::uint32_t time;
  std::uint32_t name;
  std::array<std::uint32_t, 13> versionInfo;
  Location identity;
  Location misc;
  std::array<std::uint64_t, 2> reserved;
};
static_assert(sizeof(Module) == 108);

struct Exception {
  std::uint32_t thread;
  std::uint32_t alignment;
  std::uint32_t code;
  std::uint32_t flags;
  std::uint64_t nested;
  std::uint64_t address;
  std::uint32_t parameterCount;
  std::uint32_t alignment2;
  std::array<std::uint64_t, 15> parameters;
  Location context;
};
static_assert(sizeof(Exception) == 168);

struct SystemInfo {
  std::uint16_t architecture;
  std::uint16_t level;
  std::uint16_t revision;
  std::uint8_t processors;
  std::uint8_t product;
  std::uint32_t major;
  std::uint32_t minor;
  std::uint32_t build;
  std::uint32_t platform;
  std::uint32_t description;
  std::uint32_t suite;
  std::array<std::uint32_t, 6> processor;
};
static_assert(sizeof(SystemInfo) == 56);

struct MiscInfo {
  std::uint32_t size;
  std::uint32_t flags;
  std::uint32_t processId;
  std::uint32_t createTime;
  std::uint32_t userTime;
  std::uint32_t kernelTime;
};
static_assert(sizeof(MiscInfo) == 24);

#pragma pack(pop)

}  // namespace Kyr::Crash::Dump
