#include "web/Markdown.h"

#include <regex>
#include <sstream>
#include <utility>
#include <vector>

#include "web/Frame.h"

namespace cordboard::web {

namespace {

Html Linked(const std::string& address, const Html& text) { return address.empty() ? text : Link(address, text); }

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == text.npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// Reads a page line by line, and gathers what belongs together.
class Reader {
 public:
  Reader(std::string caption, const LinkTarget& targetOf) : caption_(std::move(caption)), targetOf_(targetOf) {}

  Html Read(const std::string& markdown) {
    std::istringstream in(markdown);
    for (std::string line; std::getline(in, line);) Take(line);
    End();
    return std::move(html_);
  }

 private:
  enum class Block { None, Paragraph, Example, List, Rows };

  void Take(const std::string& line) {
    if (line.empty() && block_ == Block::Example) return examples_.push_back(line);
    if (line.empty()) return End();
    if (line.starts_with("# ")) return End();
    if (line.starts_with("## ")) {
      End();
      html_ += Element("h2", Text(line.substr(3)));
    } else if (line.starts_with("    ") && block_ != Block::Paragraph && block_ != Block::List) {
      Begin(Block::Example);
      examples_.push_back(line.substr(4));
    } else if (line.starts_with("| ")) {
      Begin(Block::Rows);
      if (!line.starts_with("| ---")) AddRow(line);
    } else if (line.starts_with("- ")) {
      Begin(Block::List);
      items_.push_back(line.substr(2));
    } else if (block_ == Block::List) {
      items_.back() += " " + Trimmed(line);
    } else {
      Begin(Block::Paragraph);
      paragraph_ += (paragraph_.empty() ? "" : " ") + Trimmed(line);
    }
  }

  void Begin(Block block) {
    if (block_ != block) End();
    block_ = block;
  }

  void End() {
    switch (std::exchange(block_, Block::None)) {
      case Block::None: break;
      case Block::Paragraph: html_ += Element("p", Text(std::exchange(paragraph_, ""))); break;
      case Block::Example: EndExample(); break;
      case Block::List: EndList(); break;
      case Block::Rows: html_ += Table(caption_, std::exchange(headings_, {}), std::exchange(rows_, {})); break;
    }
  }

  void EndExample() {
    while (examples_.back().empty()) examples_.pop_back();
    std::vector<Html> lines(examples_.begin(), examples_.end());
    html_ += AsLines(lines);
    examples_.clear();
  }

  void EndList() {
    Html items;
    for (const std::string& item : items_) items += Element("li", Text(item));
    html_ += Element("ul", items);
    items_.clear();
  }

  // The cells of "| one | two |"; the first row has the headings.
  void AddRow(const std::string& line) {
    std::vector<Html> cells;
    std::istringstream in(line.substr(1));
    for (std::string cell; std::getline(in, cell, '|');) cells.push_back(Text(Trimmed(cell)));
    if (!headings_.empty()) return rows_.push_back(std::move(cells));
    for (const Html& cell : cells) headings_.emplace_back(cell.IsEmpty() ? Html("Notes") : cell);
  }

  Html Text(const std::string& text) const { return LineAsHtml(text, targetOf_); }

  std::string caption_;
  const LinkTarget& targetOf_;
  Html html_;
  Block block_ = Block::None;
  std::string paragraph_;
  std::vector<std::string> examples_;
  std::vector<std::string> items_;
  std::vector<Heading> headings_;
  std::vector<std::vector<Html>> rows_;
};

}  // namespace

Html LineAsHtml(const std::string& markdown, const LinkTarget& targetOf) {
  static const std::regex mark(R"(`([^`]*)`|\*\*([^*]*)\*\*|\[([^\]]*)\]\(([^)]*)\))");
  Html html;
  auto rest = markdown.cbegin();
  for (std::sregex_iterator found(markdown.begin(), markdown.end(), mark), end; found != end; ++found) {
    const std::smatch& match = *found;
    html += std::string(rest, match[0].first);
    if (match[1].matched) html += Linked(targetOf(match[1]), Element("code", match[1].str()));
    if (match[2].matched) html += Element("strong", LineAsHtml(match[2], targetOf));
    if (match[3].matched) {
      const std::string page = match[4];
      html += Linked(targetOf(page.substr(0, page.rfind(".md"))), LineAsHtml(match[3], targetOf));
    }
    rest = match[0].second;
  }
  return html + std::string(rest, markdown.cend());
}

Html AsHtml(const std::string& markdown, const std::string& caption, const LinkTarget& targetOf) {
  return Reader(caption, targetOf).Read(markdown);
}

}  // namespace cordboard::web
