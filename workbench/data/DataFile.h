// Data files, read strictly: a key that nobody asks for, one that is missing and a value of another kind are errors
// that name the file, the place and the key.
//
//   const DataItem file = ReadData(text, "forms/KSEXI.json");
//   file.Object([](Fields& fields) { return Pool{fields.Get<std::string>("table"), fields.Get<std::string>("column")};
//   });
#pragma once

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "script/Value.h"
#include "workbench/data/DataTree.h"

namespace cordboard::workbench {

class DataError : public std::runtime_error {
 public:
  DataError(const std::string& file, const std::string& complaint)
      : std::runtime_error(file + ": " + complaint), complaint_(complaint) {}
  // What is wrong, with its place in the file and without the file.
  const std::string& complaint() const { return complaint_; }

 private:
  std::string complaint_;
};

class DataItems;
class Fields;

// A value in a data file that knows where it stands.
class DataItem {
 public:
  std::string Text() const;
  bool Truth() const;
  int Whole() const;
  Value Cell() const;  // a text, a number, a truth value or null, as it stands
  DataItems List() const;
  // The entries of an object whose keys are names, in the order of the file. No key stands there twice.
  std::vector<std::pair<std::string, DataItem>> Entries() const;

  // A text, a truth value, a whole number, or a list of such.
  template <typename T>
  T As() const;

  // What `read` makes of an object's fields; a key that it did not ask for is an error.
  template <typename Read>
  auto Object(Read read) const;

  // Fails with a DataError: the file, this place and the complaint.
  [[noreturn]] void Fail(const std::string& complaint) const;

 private:
  friend class DataItems;
  friend class Fields;
  friend DataItem ReadData(std::string_view text, const std::string& file);
  friend DataItem ReadResource(std::string_view path);
  struct File;

  DataItem(std::shared_ptr<const File> file, const DataNode& node) : file_(std::move(file)), node_(&node) {}

  std::string_view TextAt(TextPlace place) const;
  // What it holds, one after the other.
  template <typename Take>
  void Each(Take take) const;
  [[noreturn]] void FailAs(const char* wanted) const;

  std::shared_ptr<const File> file_;
  const DataNode* node_;  // stands in the file: where, is found out when it is told
};

// The items of a list, in their order, each made when it is come to.
class DataItems {
 public:
  class Iterator {
   public:
    Iterator(const DataItem& list, const DataNode* node) : list_(&list), node_(node) {}
    DataItem operator*() const { return DataItem(list_->file_, *node_); }
    Iterator& operator++() {
      node_ += node_->size;
      return *this;
    }
    bool operator==(const Iterator& other) const { return node_ == other.node_; }

   private:
    const DataItem* list_;
    const DataNode* node_;
  };

  explicit DataItems(DataItem list) : list_(std::move(list)) {}

  Iterator begin() const { return {list_, list_.node_ + 1}; }
  Iterator end() const { return {list_, list_.node_ + list_.node_->size}; }
  std::size_t size() const;

 private:
  DataItem list_;
};

// The fields of an object, each asked for by its key, a literal, since it is remembered.
class Fields {
 public:
  explicit Fields(const DataItem& object);

  DataItem At(std::string_view key);
  std::optional<DataItem> Find(std::string_view key);
  bool Has(std::string_view key) { return Find(key).has_value(); }

  template <typename T>
  T Get(std::string_view key) {
    return At(key).As<T>();
  }
  template <typename T>
  T Get(std::string_view key, T otherwise) {
    const auto item = Find(key);
    return item ? item->As<T>() : std::move(otherwise);
  }

  // The complaints about the keys that were not asked for.
  std::vector<std::string> Unknown() const;
  // Fails with the first of them.
  void End() const;

 private:
  const DataItem& object_;
  std::vector<std::string_view> asked_;
};

// The whole of a file; `file` names it in errors.
DataItem ReadData(std::string_view text, const std::string& file);
// A file that the program carries, by its path under data/: the build has read it.
DataItem ReadResource(std::string_view path);

template <typename T>
T DataItem::As() const {
  if constexpr (std::is_same_v<T, std::string>) {
    return Text();
  } else if constexpr (std::is_same_v<T, bool>) {
    return Truth();
  } else if constexpr (std::is_same_v<T, int>) {
    return Whole();
  } else {
    T all;
    for (const DataItem& item : List()) all.push_back(item.As<typename T::value_type>());
    return all;
  }
}

template <typename Read>
auto DataItem::Object(Read read) const {
  Fields fields(*this);
  if constexpr (std::is_void_v<decltype(read(fields))>) {
    read(fields);
    fields.End();
  } else {
    auto made = read(fields);
    fields.End();
    return made;
  }
}

}  // namespace cordboard::workbench
