#pragma once

#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/memory.h"

namespace quorvale {

/// Plain memory that notes what is given back, and spoils it, so that nobody can go on using it.
class NotingMemory final : public BlockMemory {
public:
    std::vector<std::string> Notes;

    std::unique_ptr<MemoryBlock> Allocate(std::size_t size) override {
        return std::make_unique<Block>(Notes, plain_.Allocate(size));
    }

private:
    class Block final : public MemoryBlock {
    public:
        Block(std::vector<std::string>& notes, std::unique_ptr<MemoryBlock> real)
            : notes_(notes), real_(std::move(real)) {}

        std::byte* Data() override { return real_->Data(); }
        std::size_t Size() const override { return real_->Size(); }
        void Trim(std::size_t keep) override {
            notes_.push_back("keep " + std::to_string(keep));
            std::memset(real_->Data() + keep, 0xEE, real_->Size() - keep);
        }
        void Discard(std::size_t from, std::size_t size) override {
            notes_.push_back("discard " + std::to_string(size) + " from " + std::to_string(from));
            std::memset(real_->Data() + from, 0xEE, size);
        }

    private:
        std::vector<std::string>& notes_;
        std::unique_ptr<MemoryBlock> real_;
    };

    PlainMemory plain_;
};

}  // namespace quorvale
