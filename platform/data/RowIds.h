// The row ids of a long list.
// For the data layer's own sources only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <variant>
#include <vector>

namespace tevra::detail {

/// Ids that follow each other in a list lie close together in the file, so most of them take two
/// bytes: blocks hold distances from their least id in as few bytes as the block needs.
class RowIds {
 public:
  std::size_t size() const { return blocks_.size() * kBlock + last_.size(); }
  std::int64_t operator[](std::size_t row) const;
  void push_back(std::int64_t id);
  void Set(std::size_t row, std::int64_t id);
  void clear();
  /// True when no id occurs twice.
  bool AllDiffer() const;

 private:
  static constexpr std::size_t kBlock = 1024;
  using Ids = std::vector<std::int64_t>;

  class Block {
   public:
    explicit Block(const Ids& ids);
    std::int64_t At(std::size_t place) const;
    Ids All() const;

   private:
    template <class Distance>
    void Pack(const Ids& ids);

    std::int64_t least_;
    std::variant<std::vector<std::uint16_t>, std::vector<std::uint32_t>, Ids> distances_;
  };

  template <class See>
  void ForEach(See see) const;

  std::vector<Block> blocks_;  // full ones
  Ids last_;
};

}  // namespace tevra::detail
