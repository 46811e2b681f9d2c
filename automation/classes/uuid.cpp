#include "automation/classes/uuid.h"

#include <algorithm>
#include <bit>
#include <vector>

#include "automation/classes/product.h"

namespace automation {
namespace {

constexpr size_t block_size = 64;

using Digest = std::array<uint32_t, 5>;

/// The message with the padding that the hash asks for: a one bit, zeros, the length in bits.
std::vector<uint8_t> padded(std::vector<uint8_t> bytes) {
  const uint64_t bits = bytes.size() * 8;
  bytes.push_back(0x80);
  while (bytes.size() % block_size != block_size - 8) bytes.push_back(0);
  for (int shift = 56; shift >= 0; shift -= 8) bytes.push_back(static_cast<uint8_t>(bits >> shift));
  return bytes;
}

struct Round {
  uint32_t mixed;
  uint32_t constant;
};

Round round_of(size_t step, uint32_t b, uint32_t c, uint32_t d) {
  if (step < 20) return {(b & c) | (~b & d), 0x5A827999};
  if (step < 40) return {b ^ c ^ d, 0x6ED9EBA1};
  if (step < 60) return {(b & c) | (b & d) | (c & d), 0x8F1BBCDC};
  return {b ^ c ^ d, 0xCA62C1D6};
}

void add_block(Digest& digest, const uint8_t* block) {
  std::array<uint32_t, 80> words{};
  for (size_t i = 0; i < block_size; ++i) words[i / 4] = words[i / 4] << 8 | block[i];
  for (size_t i = 16; i < words.size(); ++i)
    words[i] = std::rotl(words[i - 3] ^ words[i - 8] ^ words[i - 14] ^ words[i - 16], 1);
  auto [a, b, c, d, e] = digest;
  for (size_t i = 0; i < words.size(); ++i) {
    const Round round = round_of(i, b, c, d);
    const uint32_t next = std::rotl(a, 5) + round.mixed + e + round.constant + words[i];
    e = d;
    d = c;
    c = std::rotl(b, 30);
    b = a;
    a = next;
  }
  const Digest added{a, b, c, d, e};
  for (size_t i = 0; i < digest.size(); ++i) digest[i] += added[i];
}

Digest sha1(std::vector<uint8_t> bytes) {
  Digest digest{0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476, 0xC3D2E1F0};
  bytes = padded(std::move(bytes));
  for (size_t at = 0; at < bytes.size(); at += block_size) add_block(digest, bytes.data() + at);
  return digest;
}

}  // namespace

Uuid uuid_of(std::string_view name, const Uuid& name_space) {
  std::vector<uint8_t> bytes(name_space.begin(), name_space.end());
  bytes.insert(bytes.end(), name.begin(), name.end());
  const Digest digest = sha1(std::move(bytes));
  Uuid uuid{};
  for (size_t i = 0; i < uuid.size(); ++i) uuid[i] = static_cast<uint8_t>(digest[i / 4] >> (24 - 8 * (i % 4)));
  uuid[6] = static_cast<uint8_t>((uuid[6] & 0x0F) | 0x50);
  uuid[8] = static_cast<uint8_t>((uuid[8] & 0x3F) | 0x80);
  return uuid;
}

Uuid uuid_of(std::string_view name) { return uuid_of(name, product().name_space); }

std::string uuid_text(const Uuid& uuid) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string text;
  for (size_t i = 0; i < uuid.size(); ++i) {
    if (i == 4 || i == 6 || i == 8 || i == 10) text += '-';
    text += digits[uuid[i] >> 4];
    text += digits[uuid[i] & 0x0F];
  }
  return text;
}

}  // namespace automation
