#include "shell/qt/log_search_form.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDate>
#include <QDateEdit>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>
#include <chrono>
#include <set>
#include <utility>
#include <vector>

#include "platform/qt/text_conversion.h"
#include "session/both_languages.h"
#include "session/client.h"
#include "shell/qt/background_work.h"
#include "shell/qt/control_names.h"
#include "shell/qt/log_day_form.h"
#include "shell/qt/log_hits.h"
#include "shell/qt/one_line_only.h"

namespace parlorwire {
namespace {

constexpr QSize kLogSearchSize{760, 480};  // pixels
constexpr std::size_t kMostHits = 10'000;
constexpr std::chrono::milliseconds kNewsPeriod{50};

constexpr BothLanguages kTitle{W<"Поиск в логах">, "Search the logs"};

QDate Date(const LogDay& day) {
  return {day.year, day.month, day.day};
}

LogDay Day(const QDate& date) {
  return {date.year(), date.month(), date.day()};
}

QDate Today(const Client& client) {
  const LocalTime now = client.platform.clock.Now();
  return {now.year, now.month, now.day};
}

QString Size(std::int64_t bytes, bool english) {
  constexpr double kMega = 1024 * 1024;
  return QString::number(static_cast<double>(bytes) / kMega, 'f', 1) +
         (english ? QStringLiteral(" MB") : QStringLiteral(" МБ"));
}

}  // namespace

// What the search has found since it told last.
struct log_search_form::News {
  std::vector<LogHit> hits;
  LogProgress progress;
  State state = State::kSearching;
};

log_search_form::log_search_form(Client& client, QWidget* owner)
    : QDialog(owner), client_(client), hits_(new LogHits(this)) {
  NameControl(this, QStringLiteral("log_search_form"));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  setPalette(PaletteOn(palette(), kDialogBackColor));
  setFont(LabelFont());
  Build();
  Wire();
  SetLanguage(client_.app.Language);
}

log_search_form::~log_search_form() = default;

void log_search_form::Build() {
  l_log_text_ = new QLabel(this);
  log_text_ = new QLineEdit(this);
  log_text_->setValidator(new OneLineOnly(log_text_));
  l_log_text_->setBuddy(log_text_);
  l_log_channel_ = new QLabel(this);
  log_channel_ = new QComboBox(this);
  log_channel_->addItem(QString());
  l_log_channel_->setBuddy(log_channel_);
  l_log_first_ = new QLabel(this);
  log_first_ = new QDateEdit(this);
  l_log_first_->setBuddy(log_first_);
  l_log_last_ = new QLabel(this);
  log_last_ = new QDateEdit(this);
  l_log_last_->setBuddy(log_last_);
  for (QDateEdit* day : {log_first_, log_last_}) {
    day->setDisplayFormat(QStringLiteral("dd.MM.yyyy"));
    day->setCalendarPopup(true);
    day->setDate(Today(client_));
  }
  log_case_ = new QCheckBox(this);
  log_words_ = new QCheckBox(this);
  button_find_ = new QPushButton(this);
  button_find_->setDefault(true);
  button_stop_ = new QPushButton(this);
  button_stop_->setAutoDefault(false);
  button_stop_->setEnabled(false);
  log_hits_ = new QTreeView(this);
  log_hits_->setModel(hits_);
  log_hits_->setRootIsDecorated(false);
  log_hits_->setUniformRowHeights(true);
  log_hits_->setAllColumnsShowFocus(true);
  log_hits_->header()->setStretchLastSection(true);
  log_hits_->setColumnWidth(LogHits::kDay, 90);
  log_hits_->setColumnWidth(LogHits::kChannel, 120);
  log_state_ = new QLabel(this);

  NameControl(l_log_text_, QStringLiteral("l_log_text"));
  NameControl(log_text_, QStringLiteral("log_text"));
  NameControl(l_log_channel_, QStringLiteral("l_log_channel"));
  NameControl(log_channel_, QStringLiteral("log_channel"));
  NameControl(l_log_first_, QStringLiteral("l_log_first"));
  NameControl(log_first_, QStringLiteral("log_first"));
  NameControl(l_log_last_, QStringLiteral("l_log_last"));
  NameControl(log_last_, QStringLiteral("log_last"));
  NameControl(log_case_, QStringLiteral("log_case"));
  NameControl(log_words_, QStringLiteral("log_words"));
  NameControl(button_find_, QStringLiteral("button_find"));
  NameControl(button_stop_, QStringLiteral("button_stop"));
  NameControl(log_hits_, QStringLiteral("log_hits"));
  NameControl(log_state_, QStringLiteral("log_state"));

  auto* where = new QHBoxLayout;
  where->addWidget(log_channel_, 1);
  for (QWidget* part :
       std::initializer_list<QWidget*>{l_log_first_, log_first_, l_log_last_, log_last_})
    where->addWidget(part);
  auto* how = new QHBoxLayout;
  how->setSpacing(18);
  how->addWidget(log_case_);
  how->addWidget(log_words_);
  how->addStretch();
  auto* top = new QGridLayout;
  top->addWidget(l_log_text_, 0, 0);
  top->addWidget(log_text_, 0, 1);
  top->addWidget(button_find_, 0, 2);
  top->addWidget(l_log_channel_, 1, 0);
  top->addLayout(where, 1, 1);
  top->addWidget(button_stop_, 1, 2);
  top->addLayout(how, 2, 1);
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(14, 14, 14, 14);
  whole->addLayout(top);
  whole->addWidget(log_hits_, 1);
  whole->addWidget(log_state_);
  resize(kLogSearchSize);
}

void log_search_form::Wire() {
  connect(button_find_, &QPushButton::clicked, this, &log_search_form::Find);
  connect(button_stop_, &QPushButton::clicked, this, &log_search_form::Stop);
  connect(log_hits_, &QTreeView::activated, this,
          [this](const QModelIndex& index) { ShowDay(index.row()); });
}

void log_search_form::SetLanguage(UiLanguage language) {
  const auto words = [language](const BothLanguages& text) { return ToQString(text.In(language)); };
  const auto label = [&](QLabel* shown, QWidget* field, const BothLanguages& text) {
    shown->setText(words(text));
    SayControl(field, words(text));
  };
  const auto button = [&](QAbstractButton* shown, const BothLanguages& text) {
    shown->setText(words(text));
    SayControl(shown, words(text));
  };
  setWindowTitle(words(kTitle));
  SayControl(this, words(kTitle));
  label(l_log_text_, log_text_, {W<"&Найти:">, "Fi&nd:"});
  label(l_log_channel_, log_channel_, {W<"&Канал:">, "&Channel:"});
  label(l_log_first_, log_first_, {W<"&с">, "&from"});
  label(l_log_last_, log_last_, {W<"&по">, "&to"});
  log_channel_->setItemText(0, words({W<"Все каналы">, "All channels"}));
  button(log_case_, {W<"С &учётом регистра">, "&Match case"});
  button(log_words_, {W<"Слово &целиком">, "&Whole word"});
  button(button_find_, {W<"Н&айти">, "&Search"});
  button(button_stop_, {W<"&Остановить">, "St&op"});
  SayControl(log_hits_, words({W<"Найденные строки">, "Lines that were found"}));
  hits_->SetLanguage(language);
  ShowState();
}

void log_search_form::ComeUp() {
  listing_ = std::make_unique<BackgroundWork>(
      [this, &logs = client_.platform.day_logs](const std::stop_token&,
                                                const BackgroundWork::Tell& tell) {
        tell([this, list = logs.List()] { TakeList(list); });
      });
  show();
  raise();
  activateWindow();
  log_text_->selectAll();
  log_text_->setFocus();
}

// What the user has chosen stays; a stretch of days that nobody chose is that from the first log
// on.
void log_search_form::TakeList(const std::vector<DayLog>& logs) {
  std::set<Text> channels;
  QDate first = Today(client_);
  for (const DayLog& log : logs) {
    channels.insert(log.channel);
    first = std::min(first, Date(log.day));
  }
  const QString chosen = log_channel_->currentIndex() > 0 ? log_channel_->currentText() : QString();
  while (log_channel_->count() > 1)
    log_channel_->removeItem(1);
  for (const Text& channel : channels)
    log_channel_->addItem(ToQString(channel));
  log_channel_->setCurrentIndex(std::max(0, log_channel_->findText(chosen)));
  if (state_ == State::kFresh) log_first_->setDate(first);
}

LogQuery log_search_form::Query() const {
  LogQuery query;
  query.wanted = FromQString(log_text_->text());
  if (log_channel_->currentIndex() > 0) query.channel = FromQString(log_channel_->currentText());
  query.first = Day(std::min(log_first_->date(), log_last_->date()));
  query.last = Day(std::max(log_first_->date(), log_last_->date()));
  query.letter_case = log_case_->isChecked() ? LetterCase::kCounts : LetterCase::kIgnored;
  query.whole_words = log_words_->isChecked();
  return query;
}

void log_search_form::Find() {
  if (log_text_->text().isEmpty()) return log_text_->setFocus();
  searching_.reset();
  hits_->Clear();
  progress_ = {};
  state_ = State::kSearching;
  ShowState();
  searching_ = std::make_unique<BackgroundWork>(
      [this, &logs = client_.platform.day_logs, query = Query()](
          const std::stop_token& asked_to_stop, const BackgroundWork::Tell& tell) {
        std::stop_source stop;
        const std::stop_callback pass_on(asked_to_stop, [&stop] { stop.request_stop(); });
        News news;
        std::size_t found = 0;
        std::chrono::steady_clock::time_point told{};
        const auto tell_news = [&] {
          tell([this, said = std::exchange(news, {})]() mutable { Hear(std::move(said)); });
          told = std::chrono::steady_clock::now();
        };
        SearchLogs(
            logs, query, stop.get_token(),
            [&](LogHit hit) {
              if (found == kMostHits) return;
              news.hits.push_back(std::move(hit));
              if (++found == kMostHits) stop.request_stop();
            },
            [&](const LogProgress& progress) {
              news.progress = progress;
              if (std::chrono::steady_clock::now() - told >= kNewsPeriod) tell_news();
            });
        news.state = found == kMostHits ? State::kFull : State::kDone;
        tell_news();
      });
}

void log_search_form::Stop() {
  if (state_ != State::kSearching) return;
  searching_.reset();
  state_ = State::kStopped;
  ShowState();
}

void log_search_form::Hear(News news) {
  const bool first = hits_->rowCount() == 0;
  hits_->Add(std::move(news.hits));
  if (first && hits_->rowCount() > 0) log_hits_->setCurrentIndex(hits_->index(0, 0));
  if (news.progress.of > 0) progress_ = news.progress;
  state_ = news.state;
  ShowState();
}

void log_search_form::ShowState() {
  const bool english = client_.app.Language == UiLanguage::kEnglish;
  button_stop_->setEnabled(state_ == State::kSearching);
  if (state_ == State::kFresh) return log_state_->clear();
  constexpr BothLanguages kProgress{W<"Логов: %1 из %2, %3. Найдено строк: %4.">,
                                    "Logs: %1 of %2, %3. Lines found: %4."};
  QString text = ToQString(kProgress.In(client_.app.Language))
                     .arg(progress_.logs)
                     .arg(progress_.of)
                     .arg(Size(progress_.bytes, english))
                     .arg(hits_->rowCount());
  constexpr BothLanguages kStopped{W<" Остановлено.">, " Stopped."};
  constexpr BothLanguages kFull{W<" Больше не показывается: уточните запрос.">,
                                " No more are shown: be more precise."};
  if (state_ == State::kStopped) text += ToQString(kStopped.In(client_.app.Language));
  if (state_ == State::kFull) text += ToQString(kFull.In(client_.app.Language));
  log_state_->setText(text);
}

void log_search_form::ShowDay(int row) {
  auto* day = new log_day_form(client_, hits_->At(row), this);
  day->show();
}

void log_search_form::hideEvent(QHideEvent* event) {
  QDialog::hideEvent(event);
  listing_.reset();
  Stop();
}

// Enter in the list has shown a day, and starts no search.
void log_search_form::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!enter || !log_hits_->hasFocus()) QDialog::keyPressEvent(event);
}

}  // namespace parlorwire
