// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/JSON/JSONReader.h"

#include <simdjson.h>

#include <cstring>

namespace platform {

namespace {

/// Documents up to this size are read without asking for memory.
constexpr std::size_t smallCapacity = 256 * 1024;

/// A workspace that grew larger is given up when so many small documents have not needed it. Large
/// documents come seldom, but when one is asked for again it comes soon, and touching fresh memory
/// costs several times what reading it does.
constexpr int smallDocumentsBeforeShrinking = 64;

std::size_t roundedUp(std::size_t size) {
    constexpr std::size_t step = 4096;
    return (size / step + 1) * step;
}

[[noreturn]] void fail(simdjson::error_code error) {
    throw DecodingError(DecodingError::Kind::dataCorrupted, simdjson::error_message(error));
}

} // namespace

/// A padded buffer and the indexer's memory, both for documents up to `capacity` bytes.
struct JSONReader::Workspace {
    std::size_t capacity = 0;
    int smallDocumentsInARow = 0;
    std::unique_ptr<char[]> buffer;
    std::unique_ptr<simdjson::internal::dom_parser_implementation> indexer;

    void reserve(std::size_t size);
    void index(std::string_view bytes);

    /// Whether it holds much memory for nothing.
    bool isOutgrown() const {
        return capacity > smallCapacity && smallDocumentsInARow >= smallDocumentsBeforeShrinking;
    }
};

void JSONReader::Workspace::reserve(std::size_t size) {
    smallDocumentsInARow = size <= smallCapacity ? smallDocumentsInARow + 1 : 0;
    if (size <= capacity && indexer)
        return;
    const std::size_t wanted = roundedUp(size);
    buffer = std::make_unique_for_overwrite<char[]>(wanted + simdjson::SIMDJSON_PADDING);
    indexer.reset();
    const auto error = simdjson::get_active_implementation()->create_dom_parser_implementation(
        wanted, JSONTokens::depthLimit, indexer);
    if (error)
        fail(error);
    capacity = wanted;
}

void JSONReader::Workspace::index(std::string_view bytes) {
    std::memcpy(buffer.get(), bytes.data(), bytes.size());
    std::memset(buffer.get() + bytes.size(), 0, simdjson::SIMDJSON_PADDING);
    const auto error = indexer->stage1(reinterpret_cast<const std::uint8_t*>(buffer.get()),
                                       bytes.size(), simdjson::stage1_mode::regular);
    if (error)
        fail(error);
}

/// The thread's workspace while no document is being read.
std::unique_ptr<JSONReader::Workspace>& JSONReader::spare() {
    thread_local std::unique_ptr<Workspace> workspace;
    return workspace;
}

std::unique_ptr<JSONReader::Workspace> JSONReader::prepare(std::string_view bytes) {
    if (bytes.empty())
        fail(simdjson::EMPTY);
    if (bytes.size() > simdjson::SIMDJSON_MAXSIZE_BYTES - 4096)
        fail(simdjson::CAPACITY);
    auto workspace = std::move(spare());
    if (!workspace)
        workspace = std::make_unique<Workspace>();
    workspace->reserve(bytes.size());
    workspace->index(bytes);
    return workspace;
}

JSONReader::JSONReader(std::string_view bytes)
    : workspace_(prepare(bytes)),
      tokens_({workspace_->buffer.get(), bytes.size()},
              workspace_->indexer->structural_indexes.get(),
              workspace_->indexer->n_structural_indexes) {}

JSONReader::~JSONReader() {
    if (!workspace_->isOutgrown())
        spare() = std::move(workspace_);
}

} // namespace platform
