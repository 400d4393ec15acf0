#include "pane/rich_text_box.h"

#include <algorithm>
#include <utility>

#include "pane/storage.h"
#include "text/fault.h"

namespace parlorwire {

namespace {

PanePosition SizeOf(std::string_view text) {
  return static_cast<PanePosition>(text.size());
}

void RefuseNegative(PanePosition value) {
  if (value < 0) throw Fault(fault::kInvalidProperty);
}

}  // namespace

RichTextBox::RichTextBox(const PaneFormat& format) : storage_(std::make_unique<Storage>()) {
  OwnFormat(format);
}

RichTextBox::~RichTextBox() = default;

// ---- the control's members ----

std::string RichTextBox::Text() const {
  return storage_->text.Read(0, Length());
}

void RichTextBox::Text(std::string_view text) {
  Storage& s = *storage_;
  const PanePosition old_length = Length();
  const std::int64_t old_lines = LineCount();
  const bool moved = s.selection_end != 0;
  s.text.Clear();
  s.formats.ForgetLooks();
  ++s.look_epoch;
  s.text.Replace(0, 0, text, s.formats.Intern(s.own_look));
  s.pending.reset();
  s.selection_start = s.selection_end = 0;
  if (s.view == nullptr) return;
  if (old_length > 0 || !text.empty())
    s.view->TextChanged({0, old_length, SizeOf(text), 0, old_lines, LineCount()});
  if (moved) s.view->SelectionChanged();
}

PanePosition RichTextBox::Length() const {
  return storage_->text.Length();
}

PanePosition RichTextBox::SelStart() const {
  return storage_->selection_start;
}

void RichTextBox::SelStart(PanePosition start) {
  RefuseNegative(start);
  const PanePosition at = storage_->Clamped(start);
  storage_->Select(at, at);
}

PanePosition RichTextBox::SelLength() const {
  return storage_->selection_end - storage_->selection_start;
}

void RichTextBox::SelLength(PanePosition length) {
  RefuseNegative(length);
  Storage& s = *storage_;
  s.Select(s.selection_start, s.selection_start + std::min(length, Length() - s.selection_start));
}

std::string RichTextBox::SelText() const {
  return storage_->text.Read(storage_->selection_start, storage_->selection_end);
}

void RichTextBox::SelColor(PaneColour colour) {
  storage_->Set(PaneLookChange::kColour, &PaneLook::colour, colour);
}

void RichTextBox::SelFontName(std::string_view name) {
  storage_->Set(PaneLookChange::kFont, &PaneLook::font, storage_->formats.InternFont(name));
}

void RichTextBox::SelFontSize(int points) {
  storage_->Set(PaneLookChange::kFontSize, &PaneLook::font_size, points);
}

void RichTextBox::SelBold(bool on) {
  storage_->Set(PaneLookChange::kBold, &PaneLook::bold, on);
}

void RichTextBox::SelItalic(bool on) {
  storage_->Set(PaneLookChange::kItalic, &PaneLook::italic, on);
}

void RichTextBox::SelUnderline(bool on) {
  storage_->Set(PaneLookChange::kUnderline, &PaneLook::underline, on);
}

void RichTextBox::SelAlignment(PaneAlignment alignment) {
  storage_->Set(PaneLookChange::kAlignment, &PaneLook::alignment, alignment);
}

void RichTextBox::SelFormat(const PaneFormat& format) {
  storage_->ChangeLook({PaneLookChange::kAll, storage_->formats.Pack(format)});
}

bool RichTextBox::HideSelection() const {
  return storage_->hide_selection;
}

void RichTextBox::HideSelection(bool hide) {
  if (std::exchange(storage_->hide_selection, hide) == hide) return;
  if (storage_->view != nullptr) storage_->view->SelectionChanged();
}

bool RichTextBox::Locked() const {
  return storage_->locked;
}

void RichTextBox::Locked(bool locked) {
  storage_->locked = locked;
}

PanePointer RichTextBox::MousePointer() const {
  return storage_->pointer;
}

void RichTextBox::MousePointer(PanePointer pointer) {
  if (std::exchange(storage_->pointer, pointer) == pointer) return;
  if (storage_->view != nullptr) storage_->view->PointerChanged(pointer);
}

int RichTextBox::Width() const {
  return storage_->width;
}

void RichTextBox::Width(int twips) {
  if (std::exchange(storage_->width, twips) == twips) return;
  if (storage_->view != nullptr) storage_->view->WidthChanged(twips);
}

int RichTextBox::RightMargin() const {
  return storage_->right_margin;
}

void RichTextBox::RightMargin(int twips) {
  RefuseNegative(twips);
  if (std::exchange(storage_->right_margin, twips) == twips) return;
  if (storage_->view != nullptr) storage_->view->RightMarginChanged(twips);
}

bool RichTextBox::Visible() const {
  return storage_->visible;
}

void RichTextBox::Visible(bool visible) {
  if (std::exchange(storage_->visible, visible) == visible) return;
  if (storage_->view != nullptr) storage_->view->VisibleChanged(visible);
}

void RichTextBox::Refresh() {
  if (storage_->view != nullptr) storage_->view->Refresh();
}

const PaneFormat& RichTextBox::OwnFormat() const {
  return storage_->own_format;
}

void RichTextBox::OwnFormat(const PaneFormat& format) {
  storage_->own_look = storage_->formats.Pack(format);
  storage_->own_format = format;
}

PaneColour RichTextBox::BackColor() const {
  return storage_->back_colour;
}

void RichTextBox::BackColor(PaneColour colour) {
  if (std::exchange(storage_->back_colour, colour) == colour) return;
  Refresh();
}

// ---- the messages it answers ----

void RichTextBox::ReplaceSel(std::string_view text) {
  Storage& s = *storage_;
  if (text.empty() && s.SelectionIsEmpty()) return;
  s.Write(text, s.formats.Intern(s.pending ? *s.pending : s.LookOfNextText()));
}

void RichTextBox::ExSetSel(PanePosition min, PanePosition max) {
  Storage& s = *storage_;
  const PanePosition length = Length();
  if (min < 0) min = max = max < 0 ? length : s.selection_end;
  if (max < 0) max = length;
  if (min > max) std::swap(min, max);
  s.Select(s.Clamped(min), s.Clamped(max));
}

PanePosition RichTextBox::CharFromPos(int x, int y) const {
  return storage_->view == nullptr ? 0 : storage_->view->CharFromPos(x, y);
}

void RichTextBox::SetCharFormat(PaneColour back, PaneColour text) {
  PaneLookChange change{PaneLookChange::kBackColour | PaneLookChange::kColour, {}};
  change.value.has_back_colour = true;
  change.value.back_colour = back;
  change.value.colour = text;
  storage_->ChangeLook(change);
}

void RichTextBox::SetRedraw(bool on) {
  if (std::exchange(storage_->redraw, on) == on) return;
  if (storage_->view != nullptr) storage_->view->RedrawChanged(on);
}

bool RichTextBox::Redraw() const {
  return storage_->redraw;
}

void RichTextBox::VScroll(PaneScroll command) {
  if (storage_->view != nullptr) storage_->view->Scroll(command);
}

void RichTextBox::PastePicture(const std::shared_ptr<const PanePicture>& picture) {
  if (picture == nullptr) return;
  Storage& s = *storage_;
  PaneLook look = s.pending ? *s.pending : s.LookOfNextText();
  look.picture = s.formats.InternPicture(picture);
  s.Write(" ", s.formats.Intern(look));
}

PaneScrollInfo RichTextBox::GetScrollInfo() const {
  return storage_->view == nullptr ? PaneScrollInfo{} : storage_->view->GetScrollInfo();
}

// ---- reading ----

std::string RichTextBox::TextBetween(PanePosition start, PanePosition end) const {
  start = storage_->Clamped(start);
  return storage_->text.Read(start, std::max(start, storage_->Clamped(end)));
}

std::vector<PaneRun> RichTextBox::RunsBetween(PanePosition start, PanePosition end) const {
  std::vector<PaneRun> runs;
  const auto stretches = LooksBetween(start, end);
  runs.reserve(stretches.size());
  for (const PaneStretch& stretch : stretches) {
    runs.push_back(LookOf(stretch.look));
    runs.back().start = stretch.start;
    runs.back().length = stretch.length;
  }
  return runs;
}

std::vector<PaneStretch> RichTextBox::LooksBetween(PanePosition start, PanePosition end) const {
  start = storage_->Clamped(start);
  return storage_->text.Looks(start, std::max(start, storage_->Clamped(end)));
}

PaneRun RichTextBox::LookOf(PaneLookId look) const {
  const PaneLook& found = storage_->formats.Look(look);
  return {0, 0, storage_->formats.Unpack(found), storage_->formats.Picture(found)};
}

std::uint64_t RichTextBox::LookEpoch() const {
  return storage_->look_epoch;
}

std::vector<PaneRun> RichTextBox::Runs() const {
  return RunsBetween(0, Length());
}

std::int64_t RichTextBox::LineCount() const {
  return storage_->text.LineCount();
}

std::int64_t RichTextBox::LineAt(PanePosition position) const {
  return storage_->text.LineAt(storage_->Clamped(position));
}

PaneLine RichTextBox::LineByIndex(std::int64_t index) const {
  return storage_->text.Line(std::clamp<std::int64_t>(index, 0, LineCount() - 1));
}

void RichTextBox::Attach(PaneView* view) {
  storage_->view = view;
}

// ---- counted work and memory ----

const PaneWork& RichTextBox::work() const {
  return storage_->work;
}

std::size_t RichTextBox::MemoryUsed() const {
  return sizeof(Storage) + storage_->text.MemoryUsed() + storage_->formats.MemoryUsed();
}

}  // namespace parlorwire
