#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstdint>

/// The entry that libFuzzer calls with each input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Encodings of the computers that the tool runs on: names are stored in the local one.
constexpr const char* kLocalEncodings[] = {"UTF-8", "windows-1252"};

/// The input as a byte array of its own.
QByteArray inputBytes(const std::uint8_t* data, std::size_t size);

/// Ends the run with a finding, the property in words, unless it holds.
void require(bool holds, const char* property);
