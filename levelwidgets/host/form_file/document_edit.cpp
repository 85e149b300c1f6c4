#include <levelwidgets/host/form_file/document_edit.h>

#include <algorithm>
#include <utility>

#include <levelwidgets/host/form_file/values.h>

namespace levelwidgets {

namespace {

using Shape = FormNode::Shape;

bool IsTableOf(const FormNode& node, Shape shape) { return node.IsTable() && node.shape == shape; }
bool IsInLines(const FormNode& node) { return node.IsTable() && node.shape != Shape::kInline; }
bool IsHeaderList(const FormNode& node) {
  return node.kind == FormNode::Kind::kList && !node.children.empty() &&
         IsTableOf(node.children.front(), Shape::kHeader);
}

// The headers and keys that `node` consists of.
void AppendStatements(const FormNode& node, std::vector<TextSpan>& statements) {
  if (!IsInLines(node) && !IsHeaderList(node)) {
    statements.push_back({node.key_span.begin, node.span.end});
    return;
  }
  if (IsTableOf(node, Shape::kHeader)) statements.push_back(node.span);
  for (const FormNode& child : node.children) AppendStatements(child, statements);
}

// The statements of `node`, each once: [a.b] alone is the header of both.
std::vector<TextSpan> StatementsOf(const FormNode& node) {
  std::vector<TextSpan> statements;
  AppendStatements(node, statements);
  std::ranges::sort(statements, {}, &TextSpan::begin);
  const auto same = [](const TextSpan& a, const TextSpan& b) { return a.begin == b.begin; };
  statements.erase(std::unique(statements.begin(), statements.end(), same), statements.end());
  return statements;
}

const Font* FontOf(const KeyChange& change) {
  const FontRef* font = change.value ? std::get_if<FontRef>(&change.value->Get()) : nullptr;
  return font && *font ? font->get() : nullptr;
}

// The keys of a font's table that have to change for it to say `font`.
std::vector<KeyChange> FontChanges(const FormNode& table, const Font& font, const FormDocument& document) {
  std::vector<KeyChange> changes;
  for (const PropertyInfo& part : Font::Table().Properties()) {
    const FormNode* node = table.Find(part.name);
    const Variant now = part.get(font);
    const std::optional<Variant> before =
        node ? ReadUntyped(*node, document) : part.defaults.when_read.Value();
    if ((IsRequired(part) && !node) || !before || !(*before == now)) {
      changes.push_back({part.name, now, part.type});
    }
  }
  return changes;
}

const KeyChange* FindChange(const std::vector<KeyChange>& changes, std::string_view key) {
  const auto found = std::ranges::find(changes, key, &KeyChange::key);
  return found == changes.end() ? nullptr : &*found;
}

// Where the blank lines begin with which `text` ends.
std::size_t EndWithoutBlankLines(const std::string& text) {
  const std::size_t last = text.find_last_not_of(" \t\r\n");
  if (last == std::string::npos) return 0;
  return std::min(text.find('\n', last), text.size() - 1) + 1;
}

std::string KeyAndValue(const KeyChange& change) {
  return std::string(change.key) + " = " + WriteValue(*change.value, change.type);
}

}  // namespace

FormTextEditor::FormTextEditor(const FormDocument& document)
    : document_(document), statements_(StatementsOf(document.Root())) {
  const std::size_t end = Text().find('\n');
  newline_ = end != std::string_view::npos && end > 0 && Text()[end - 1] == '\r' ? "\r\n" : "\n";
  // The root is no statement.
  std::erase_if(statements_, [](const TextSpan& span) { return span.begin == span.end; });
}

void FormTextEditor::Change(const FormNode& table, const std::vector<KeyChange>& changes) {
  if (changes.empty()) return;
  if (table.shape == Shape::kInline) {
    edits_.push_back({table.span, Inline(table, changes)});
  } else {
    ChangeLines(table, table.shape == Shape::kDotted ? table.key + "." : "", changes);
  }
}

// --- Tables written in lines ---------------------------------------------------------------------------

void FormTextEditor::ChangeLines(const FormNode& table, const std::string& prefix,
                                 const std::vector<KeyChange>& changes) {
  std::vector<std::string> added;
  for (const KeyChange& change : changes) {
    const FormNode* node = table.Find(change.key);
    const Font* font = FontOf(change);
    if (node && font && IsInLines(*node)) {
      const bool dotted = node->shape == Shape::kDotted;
      ChangeLines(*node, dotted ? prefix + node->key + "." : "", FontChanges(*node, *font, document_));
    } else if (node && font && node->IsTable()) {
      Change(*node, FontChanges(*node, *font, document_));
    } else if (node && change.value && !IsInLines(*node)) {
      edits_.push_back({node->span, WriteValue(*change.value, change.type)});
    } else {
      if (node) RemoveLines(*node);
      if (change.value) added.push_back(prefix + KeyAndValue(change));
    }
  }
  if (!added.empty()) AddLines(table, added);
}

void FormTextEditor::RemoveLines(const FormNode& node) {
  for (const TextSpan& statement : StatementsOf(node)) edits_.push_back({WholeLines(statement), ""});
}

void FormTextEditor::AddLines(const FormNode& table, const std::vector<std::string>& lines) {
  TextSpan last = table.span;
  for (const FormNode& child : table.children) {
    const FormNode& first = IsHeaderList(child) ? child.children.front() : child;
    if (IsTableOf(first, Shape::kHeader) && first.span.begin == table.span.begin) {
      AddHeader(table, lines);
      return;
    }
    if (IsTableOf(child, Shape::kHeader) || IsHeaderList(child)) continue;
    const TextSpan statement = StatementsOf(child).back();
    if (statement.end > last.end) last = statement;
  }
  const std::size_t start = LineStart(last.begin);
  const std::string indent(Text().substr(start, Text().find_first_not_of(" \t", start) - start));
  const std::size_t end = LineEnd(last.end);
  const bool ends_in_newline = end > 0 && Text()[end - 1] == '\n';
  for (const std::string& line : lines) {
    edits_.push_back({{end, end}, ends_in_newline ? indent + line + newline_ : newline_ + indent + line});
  }
}

// `table` has no header yet: [control.Properties.Font] alone made it.
void FormTextEditor::AddHeader(const FormNode& table, const std::vector<std::string>& lines) {
  const std::size_t keys = Text().find_first_not_of('[', table.span.begin);
  std::string text = "[" + std::string(document_.TextOf({keys, table.key_span.end})) + "]" + newline_;
  for (const std::string& line : lines) text += line + newline_;
  const std::size_t start = LineStart(table.span.begin);
  edits_.push_back({{start, start}, text});
}

// --- Tables written inline -----------------------------------------------------------------------------

std::string FormTextEditor::Inline(const FormNode& table, const std::vector<KeyChange>& changes) const {
  std::string text;
  const auto append = [&text](const std::string& entry) { text += (text.empty() ? " " : ", ") + entry; };
  for (const FormNode& entry : table.children) {
    const KeyChange* change = FindChange(changes, entry.key);
    if (!change || change->value) append(InlineEntry(entry, change));
  }
  for (const KeyChange& change : changes) {
    if (change.value && !table.Find(change.key)) append(KeyAndValue(change));
  }
  return text.empty() ? "{}" : "{" + text + " }";
}

std::string FormTextEditor::InlineEntry(const FormNode& entry, const KeyChange* change) const {
  const Font* font = change ? FontOf(*change) : nullptr;
  if (change && !(font && entry.IsTable())) return KeyAndValue(*change);
  const std::string key(document_.TextOf(entry.key_span));
  if (font) return key + " = " + Inline(entry, FontChanges(entry, *font, document_));
  if (IsTableOf(entry, Shape::kDotted)) return key + " = " + Inline(entry, {});
  return std::string(document_.TextOf({entry.key_span.begin, entry.span.end}));
}

// --- Blocks ----------------------------------------------------------------------------------------------

void FormTextEditor::RemoveBlock(const FormNode& table) {
  const std::vector<TextSpan> own = StatementsOf(table);
  // Other tables may stand between the block's own.
  for (std::size_t first = 0, last = 0; first < own.size(); first = last + 1) {
    auto at = std::ranges::lower_bound(statements_, own[first].begin, {}, &TextSpan::begin);
    const std::size_t previous_end = at == statements_.begin() ? 0 : std::prev(at)->end;
    for (last = first; last + 1 < own.size() && (++at)->begin == own[last + 1].begin;) ++last;
    const TextSpan lines = WholeLines({own[first].begin, own[last].end});
    edits_.push_back({Surroundings(lines, previous_end), ""});
    removed_end_ |= edits_.back().span.end == Text().size();
  }
}

TextSpan FormTextEditor::Surroundings(TextSpan lines, std::size_t previous_end) const {
  const std::size_t first_free = previous_end == 0 ? 0 : LineEnd(previous_end);
  const auto line_before = [this](std::size_t line) { return LineStart(line - 1); };
  while (lines.begin > first_free && LineStartsWith(line_before(lines.begin), '#')) {
    lines.begin = line_before(lines.begin);
  }
  // A comment directly below goes too, unless it belongs to a table that follows.
  std::size_t end = lines.end;
  while (end < Text().size() && LineStartsWith(end, '#')) end = LineEnd(end);
  if (end == Text().size() || IsBlankLine(end)) lines.end = end;
  while (lines.end < Text().size() && IsBlankLine(lines.end)) lines.end = LineEnd(lines.end);
  return lines;
}

// --- Lines -----------------------------------------------------------------------------------------------

std::size_t FormTextEditor::LineStart(std::size_t offset) const {
  return Text().substr(0, offset).rfind('\n') + 1;  // 0 on the first line
}

std::size_t FormTextEditor::LineEnd(std::size_t offset) const {
  const std::size_t end = Text().find('\n', offset);
  return end == std::string_view::npos ? Text().size() : end + 1;
}

bool FormTextEditor::LineStartsWith(std::size_t line, char c) const {
  const std::size_t first = Text().find_first_not_of(" \t", line);
  return first != std::string_view::npos && Text()[first] == c;
}

bool FormTextEditor::IsBlankLine(std::size_t line) const {
  const std::size_t first = Text().find_first_not_of(" \t\r", line);
  return first == std::string_view::npos || Text()[first] == '\n';
}

std::string FormTextEditor::Apply() const {
  std::vector<const Edit*> edits;
  for (const Edit& edit : edits_) edits.push_back(&edit);
  // What is added comes before what is taken away in the same place.
  std::ranges::stable_sort(edits, {},
                           [](const Edit* edit) { return std::pair(edit->span.begin, edit->span.end); });
  std::string text;
  std::size_t done = 0;
  for (const Edit* edit : edits) {
    text += Text().substr(done, edit->span.begin - done);
    text += edit->text;
    done = edit->span.end;
  }
  text += Text().substr(done);
  if (removed_end_) text.erase(EndWithoutBlankLines(text));
  return text;
}

}  // namespace levelwidgets
