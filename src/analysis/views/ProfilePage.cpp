#include "analysis/views/ProfilePage.h"

#include "core/views/Widgets.h"
#include "core/views/StoredTextValidator.h"
#include "core/views/ErrorGuard.h"

#include <QEvent>
#include <QFile>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "analysis/AnalysisTexts.h"
#include "core/LineFile.h"
#include "core/Numeric.h"
#include "core/RunTimeError.h"

namespace pw {

namespace {




template <std::size_t N>
int SelectedOption(const std::array<QRadioButton*, N>& options)
{
    for (std::size_t i = 0; i < N; ++i)
        if (options[i]->isChecked())
            return int(i);
    return kNoOption;
}

// Selects option index of the array, or none of it for an index that names
// no option. The others are switched off first, so the handler of the one
// switched on sees a settled array.
template <std::size_t N>
void SelectOption(const std::array<QRadioButton*, N>& options, int index)
{
    for (QRadioButton* option : options)
        option->setAutoExclusive(false);
    for (std::size_t i = 0; i < N; ++i)
        if (int(i) != index)
            options[i]->setChecked(false);
    if (index >= 0 && index < int(N))
        options[std::size_t(index)]->setChecked(true);
    for (QRadioButton* option : options)
        option->setAutoExclusive(true);
}

QRadioButton* MakeOption(QWidget* parent, const char* objectName, const char* caption, const char* tooltip)
{
    auto* option = new QRadioButton(QString::fromLatin1(caption), parent);
    option->setObjectName(QString::fromLatin1(objectName));
    if (tooltip)
        option->setToolTip(QString::fromLatin1(tooltip));
    return option;
}

QLabel* MakeBuddyLabel(QWidget* parent, const char* caption, QWidget* buddy)
{
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setText(QString::fromLatin1(caption));
    label->setBuddy(buddy);
    return label;
}

void Tighten(QLayout* layout)
{
    layout->setContentsMargins(6, 2, 6, 2);
    layout->setSpacing(2);
}

}  // namespace

ProfilePage::ProfilePage(AnalysisSession& session, Seams& seams, ErrorGuard* errorGuard, QWidget* parent)
    : QWidget(parent), guard(errorGuard), session_(session), seams_(seams)
{
    BuildControls();
    ShowGuidance();

    ConnectGuarded(txtName, &QLineEdit::textChanged, this, &ProfilePage::txtName_Change, guard);
    ConnectGuarded(txtYOB, &QLineEdit::textChanged, this, &ProfilePage::txtYOB_Change, guard);
    for (QLineEdit* box : {txtName, txtYOB, txtHeight, txtWeight})
        box->installEventFilter(this);
    for (int i = 0; i < kMeasurementOptions; ++i)
        connect(optMeasurement[i], &QRadioButton::toggled, this, [this, i](bool on) {
            if (on)
                RunGuarded(guard, [this, i] { optMeasurement_Click(i); });
        });
    for (QRadioButton* option : optSex)
        connect(option, &QRadioButton::toggled, this, [this](bool on) {
            if (on)
                RunGuarded(guard, [this] { optSex_Click(); });
        });
    for (QRadioButton* option : optLifestyle)
        connect(option, &QRadioButton::toggled, this, [this](bool on) {
            if (on)
                RunGuarded(guard, [this] { optLifestyle_Click(); });
        });
    ConnectGuarded(btnNewProfile, &QPushButton::clicked, this, &ProfilePage::btnNewProfile_Click, guard);
    ConnectGuarded(btnLoadProfile, &QPushButton::clicked, this, &ProfilePage::btnLoadProfile_Click, guard);
    ConnectGuarded(btnSaveProfile, &QPushButton::clicked, this, &ProfilePage::btnSaveProfile_Click, guard);
    ConnectGuarded(btnTab1Help, &QPushButton::clicked, this, &ProfilePage::btnTab1Help_Click, guard);
}

void ProfilePage::BuildControls()
{
    // Name and year of birth.
    txtName = MakeBox(this, QStringLiteral("txtName"));
    txtName->setToolTip(QStringLiteral("Enter your name"));
    KeepStorable(txtName, seams_.prompts);
    txtYOB = MakeBox(this, QStringLiteral("txtYOB"));
    txtYOB->setToolTip(QStringLiteral("Enter last two digits of birth year"));
    txtYOB->setMaxLength(2);
    txtYOB->setFixedWidth(txtYOB->fontMetrics().horizontalAdvance(QStringLiteral("0000")) + 12);

    auto* nameRow = new QHBoxLayout;
    nameRow->setSpacing(4);
    nameRow->addWidget(MakeBuddyLabel(this, "&Name:", txtName));
    nameRow->addWidget(txtName, 1);
    nameRow->addSpacing(8);
    nameRow->addWidget(MakeBuddyLabel(this, "&Year of birth (YY):", txtYOB));
    nameRow->addWidget(txtYOB);

    // Measurement, height and weight.
    frmMeasurement = new QGroupBox(QStringLiteral("Measurement Preference"), this);
    frmMeasurement->setObjectName(QStringLiteral("frmMeasurement"));
    optMeasurement[kMeasurementEnglish] =
        MakeOption(frmMeasurement, "optMeasurement0", "English", "Inches and pounds");
    optMeasurement[kMeasurementMetric] =
        MakeOption(frmMeasurement, "optMeasurement1", "Metric", "Centimeters and kilograms");
    auto* measurementLayout = new QHBoxLayout(frmMeasurement);
    Tighten(measurementLayout);
    measurementLayout->setSpacing(12);
    for (QRadioButton* option : optMeasurement)
        measurementLayout->addWidget(option);
    measurementLayout->addStretch(1);

    txtHeight = MakeBox(this, QStringLiteral("txtHeight"));
    txtWeight = MakeBox(this, QStringLiteral("txtWeight"));
    const int measureWidth = txtHeight->fontMetrics().horizontalAdvance(QStringLiteral("000000")) + 12;
    txtHeight->setFixedWidth(measureWidth);
    txtWeight->setFixedWidth(measureWidth);
    labHeightUnits = MakeLabel(this, QStringLiteral("labHeightUnits"), "inches");
    labHeightUnits->setObjectName(QStringLiteral("labHeightUnits"));
    labWeightUnits = MakeLabel(this, QStringLiteral("labWeightUnits"), "pounds");
    labWeightUnits->setObjectName(QStringLiteral("labWeightUnits"));

    auto* measures = new QGridLayout;
    measures->setContentsMargins(0, 0, 0, 0);
    measures->setHorizontalSpacing(4);
    measures->setVerticalSpacing(2);
    measures->addWidget(MakeBuddyLabel(this, "He&ight:", txtHeight), 0, 0);
    measures->addWidget(txtHeight, 0, 1);
    measures->addWidget(labHeightUnits, 0, 2);
    measures->addWidget(MakeBuddyLabel(this, "Wei&ght:", txtWeight), 1, 0);
    measures->addWidget(txtWeight, 1, 1);
    measures->addWidget(labWeightUnits, 1, 2);
    measures->setColumnStretch(2, 1);

    auto* leftColumn = new QVBoxLayout;
    leftColumn->setSpacing(4);
    leftColumn->addWidget(frmMeasurement);
    leftColumn->addLayout(measures);
    leftColumn->addStretch(1);

    // Sex and lifestyle.
    frameSex = new QGroupBox(QStringLiteral("Sex"), this);
    frameSex->setObjectName(QStringLiteral("frameSex"));
    optSex[kSexFemale] = MakeOption(frameSex, "optSex0", "Female", nullptr);
    optSex[kSexMale] = MakeOption(frameSex, "optSex1", "Male", nullptr);
    auto* sexLayout = new QVBoxLayout(frameSex);
    Tighten(sexLayout);
    for (QRadioButton* option : optSex)
        sexLayout->addWidget(option);
    sexLayout->addStretch(1);

    frameLifestyle = new QGroupBox(QStringLiteral("Lifestyle"), this);
    frameLifestyle->setObjectName(QStringLiteral("frameLifestyle"));
    optLifestyle[kLifestyleSedentary] =
        MakeOption(frameLifestyle, "optLifestyle0", "Sedentary", "Sitting most of the day");
    optLifestyle[kLifestyleLight] = MakeOption(frameLifestyle, "optLifestyle1", "Light", "Standing most of the day");
    optLifestyle[kLifestyleModerate] =
        MakeOption(frameLifestyle, "optLifestyle2", "Moderate", "Walking, gardening, housework");
    optLifestyle[kLifestyleActive] =
        MakeOption(frameLifestyle, "optLifestyle3", "Active", "Dancing, skating, manual labor");
    auto* lifestyleLayout = new QVBoxLayout(frameLifestyle);
    Tighten(lifestyleLayout);
    for (QRadioButton* option : optLifestyle)
        lifestyleLayout->addWidget(option);

    auto* middleRow = new QHBoxLayout;
    middleRow->setSpacing(8);
    middleRow->addLayout(leftColumn, 1);
    middleRow->addWidget(frameSex);
    middleRow->addWidget(frameLifestyle);

    // Buttons.
    btnNewProfile = MakeButton(this, "btnNewProfile", "New Profile", nullptr, ButtonDefault::Never);
    btnLoadProfile = MakeButton(this, "btnLoadProfile", "Load Profile", nullptr, ButtonDefault::Never);
    btnSaveProfile = MakeButton(this, "btnSaveProfile", "Save this Profile", nullptr, ButtonDefault::Never);
    btnTab1Help = MakeButton(this, "btnTab1Help", "Help", nullptr, ButtonDefault::Never);
    auto* buttonRow = new QHBoxLayout;
    buttonRow->setSpacing(6);
    for (QPushButton* button : {btnNewProfile, btnLoadProfile, btnSaveProfile, btnTab1Help})
        buttonRow->addWidget(button);

    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(6, 6, 6, 6);
    page->setSpacing(6);
    page->addLayout(nameRow);
    page->addLayout(middleRow, 1);
    labProfileGuide = new QLabel(this);
    labProfileGuide->setObjectName(QStringLiteral("labProfileGuide"));
    labProfileGuide->setWordWrap(true);
    labProfileGuide->setTextFormat(Qt::PlainText);
    QFont guideFont = labProfileGuide->font();
    guideFont.setItalic(true);
    labProfileGuide->setFont(guideFont);
    page->addWidget(labProfileGuide);
    page->addLayout(buttonRow);

    // A new profile: English units, female, sedentary, nothing typed yet, so
    // not valid and not to be saved.
    optMeasurement[kMeasurementEnglish]->setChecked(true);
    optSex[kSexFemale]->setChecked(true);
    optLifestyle[kLifestyleSedentary]->setChecked(true);
    btnSaveProfile->setEnabled(false);

    QWidget* order[] = {txtName,         txtYOB,          optMeasurement[0], optMeasurement[1], txtHeight,
                        txtWeight,       optSex[0],       optSex[1],         optLifestyle[0],   optLifestyle[1],
                        optLifestyle[2], optLifestyle[3], btnNewProfile,     btnLoadProfile,    btnSaveProfile,
                        btnTab1Help};
    for (std::size_t i = 1; i < std::size(order); ++i)
        setTabOrder(order[i - 1], order[i]);
}

ProfileInputs ProfilePage::CurrentInputs() const
{
    ProfileInputs inputs;
    inputs.name = ToLatin1(txtName->text());
    inputs.yob = ToLatin1(txtYOB->text());
    inputs.height = ToLatin1(txtHeight->text());
    inputs.weight = ToLatin1(txtWeight->text());
    inputs.measurement = SelectedOption(optMeasurement);
    inputs.sex = SelectedOption(optSex);
    inputs.lifestyle = SelectedOption(optLifestyle);
    return inputs;
}

void ProfilePage::ValidateTab1Data()
{
    const ProfileInputs inputs = CurrentInputs();
    const int year = seams_.clock.CurrentYear();
    validated_.emplace(inputs, year);
    const ProfileVerdict verdict = ValidateProfile(inputs, year, session_.profile);
    if (verdict.underAge) {
        seams_.prompts.Message(std::string(texts::kInvalidAge), texts::kTitleInvalidAge, MsgIcon::Exclamation);
        // Emptying the box runs its change handler, which validates the
        // emptied profile and tells its outcome.
        txtYOB->clear();
        txtYOB->setFocus();
        if (validated_ && validated_->first.yob.empty())
            return;
        ValidateTab1Data();
        return;
    }
    btnSaveProfile->setEnabled(verdict.valid);
    ShowGuidanceOf(session_.profile);
    emit profileValidated(verdict.valid);
}

void ProfilePage::ValidateIfChanged()
{
    if (!validated_ || validated_->first != CurrentInputs() || validated_->second != seams_.clock.CurrentYear())
        ValidateTab1Data();
}

void ProfilePage::ShowGuidance()
{
    // Worked out on a copy from the boxes as they are now.
    Profile scratch = session_.profile;
    ValidateProfile(CurrentInputs(), seams_.clock.CurrentYear(), scratch);
    ShowGuidanceOf(scratch);
}

void ProfilePage::ShowGuidanceOf(const Profile& profile)
{
    QStringList missing;
    for (const std::string& line : ProfileGuidance(profile))
        missing << FromLatin1(line);
    labProfileGuide->setText(missing.join(QStringLiteral("; ")));
    labProfileGuide->setVisible(!missing.isEmpty());
}

void ProfilePage::ValidateFromHandler()
{
    if (!loading_) {
        ValidateTab1Data();
        return;
    }
    if (loadFailed_)
        return;
    try {
        ValidateTab1Data();
    } catch (const RunTimeError&) {
        loadFailed_ = true;
    }
}

void ProfilePage::txtName_Change() { ValidateFromHandler(); }
void ProfilePage::txtYOB_Change() { ValidateFromHandler(); }
void ProfilePage::optSex_Click() { ValidateFromHandler(); }
void ProfilePage::optLifestyle_Click() { ValidateFromHandler(); }

bool ProfilePage::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyRelease) {
        RunGuarded(guard, [this, watched] {
            if (watched == txtName)
                txtName_KeyUp();
            else if (watched == txtYOB)
                txtYOB_KeyUp();
            else if (watched == txtHeight)
                txtHeight_KeyUp();
            else if (watched == txtWeight)
                txtWeight_KeyUp();
        });
    }
    return QWidget::eventFilter(watched, event);
}

void ProfilePage::txtName_KeyUp()
{
    // The test runs on UTF-8 so that a letter outside Latin-1 is not taken
    // for the "?" it would become in a file.
    if (IsLegalFileName(txtName->text().toUtf8().toStdString())) {
        ValidateIfChanged();
        return;
    }
    seams_.prompts.Beep();
    seams_.prompts.Message(std::string(texts::kIllegalNameCharacter), texts::kTitleError, MsgIcon::Critical);
    // The character just typed is taken to be the offender.
    QString name = txtName->text();
    qsizetype cut = 1;
    if (name.size() >= 2 && name.back().isLowSurrogate() && name.at(name.size() - 2).isHighSurrogate())
        cut = 2;
    name.chop(cut);
    txtName->setText(name);
    txtName->setFocus();
    txtName->setCursorPosition(int(name.size()));
}

void ProfilePage::NumericKeyUp(QLineEdit* box)
{
    KeepNumbersOnly(*box, seams_.prompts);
    ValidateIfChanged();
}

void ProfilePage::txtYOB_KeyUp() { NumericKeyUp(txtYOB); }
void ProfilePage::txtHeight_KeyUp() { NumericKeyUp(txtHeight); }
void ProfilePage::txtWeight_KeyUp() { NumericKeyUp(txtWeight); }

void ProfilePage::optMeasurement_Click(int index)
{
    // Shows the stored measures in the new units; the typed values stay the
    // source until the next validation reads the boxes again.
    const Profile& p = session_.profile;
    if (index != kMeasurementEnglish) {
        labHeightUnits->setText(QStringLiteral("cm"));
        labWeightUnits->setText(QStringLiteral("kg"));
        txtHeight->setText(FromLatin1(UnitSwitchText(p.heightCentimeters)));
        txtWeight->setText(FromLatin1(UnitSwitchText(p.weightKilograms)));
    } else {
        labHeightUnits->setText(QStringLiteral("inches"));
        labWeightUnits->setText(QStringLiteral("pounds"));
        txtHeight->setText(FromLatin1(UnitSwitchText(p.heightInches)));
        txtWeight->setText(FromLatin1(UnitSwitchText(p.weightPounds)));
    }
}

void ProfilePage::btnNewProfile_Click()
{
    txtName->clear();
    txtHeight->clear();
    txtWeight->clear();
    txtYOB->clear();
    btnSaveProfile->setEnabled(false);
    ShowGuidance();
    emit profileValidated(false);
    emit newProfileStarted();
}

void ProfilePage::btnTab1Help_Click()
{
    OpenHelp(seams_.help, session_.programFolder, kHelpContext,
                         kTopicProfile);
}

void ProfilePage::btnSaveProfile_Click()
{
    const QString name = txtName->text();
    FileDialogRequest request;
    request.initialFolder = FromNativePath(session_.programFolder);
    request.defaultExtension = QString::fromLatin1(kProfileExtension);
    request.proposedName = IsLegalFileName(name.toUtf8().toStdString())
                               ? name + QString::fromLatin1(kProfileExtension)
                               : QString();
    request.filter = QString::fromLatin1(texts::kProfileFilter);
    request.overwritePrompt = true;
    request.pathMustExist = true;
    const std::optional<QString> path = seams_.files.SaveFile(request);
    if (!path)
        return;
    if (!SaveOrTell(seams_.prompts, QString::fromLatin1(texts::kTitleSaveProfile), [&] { WritePWP(*path); }))
        return;
    seams_.prompts.Message(std::string(texts::kProfileSaved), texts::kTitleSaveProfile, MsgIcon::Information);
}

void ProfilePage::btnLoadProfile_Click()
{
    FileDialogRequest request;
    request.initialFolder = FromNativePath(session_.programFolder);
    request.defaultExtension = QString::fromLatin1(kProfileExtension);
    request.filter = QString::fromLatin1(texts::kProfileFilter);
    request.fileMustExist = true;
    request.hideReadOnly = true;
    const std::optional<QString> path = seams_.files.OpenFile(request);
    if (!path)
        return;
    ReadPWP(*path);
}

void ProfilePage::WritePWP(const QString& path) { WriteProfileFile(ToNativePath(path), CurrentInputs()); }

void ProfilePage::ApplySetting(const ProfileSetting& setting)
{
    switch (setting.field) {
    case ProfileField::Name: txtName->setText(FromLatin1(setting.text)); break;
    case ProfileField::Yob: txtYOB->setText(FromLatin1(setting.text)); break;
    case ProfileField::Height: txtHeight->setText(FromLatin1(setting.text)); break;
    case ProfileField::Weight: txtWeight->setText(FromLatin1(setting.text)); break;
    case ProfileField::Measurement: SelectOption(optMeasurement, setting.option); break;
    case ProfileField::Sex: SelectOption(optSex, setting.option); break;
    case ProfileField::Lifestyle: SelectOption(optLifestyle, setting.option); break;
    }
}

bool ProfilePage::ApplySettings(const std::vector<ProfileSetting>& settings)
{
    loading_ = true;
    loadFailed_ = false;
    for (const ProfileSetting& setting : settings) {
        ApplySetting(setting);
        if (loadFailed_)
            break;
    }
    loading_ = false;
    return !loadFailed_;
}

void ProfilePage::ReportNotAProfileFile(const QString& path)
{
    seams_.prompts.Message(path + QString::fromLatin1(texts::kNotAProfileFile), QString::fromLatin1(texts::kTitleError),
                           MsgIcon::Critical);
}

bool ProfilePage::ReadPWP(const QString& path)
{
    const ProfileFileContent content = ReadProfileFile(ToNativePath(path));
    if (!ApplySettings(content.settings) || !content.valid) {
        ReportNotAProfileFile(path);
        return false;
    }
    // A profile without height or weight is not carried into the next run.
    if (txtHeight->text().isEmpty() || txtWeight->text().isEmpty()) {
        const std::string defaultProfile = FindFileNoCase(session_.programFolder, kDefaultProfileName);
        if (!defaultProfile.empty())
            DeleteFileIfExists(defaultProfile);
    }
    try {
        ValidateTab1Data();
    } catch (const RunTimeError&) {
        ReportNotAProfileFile(path);
        return false;
    }
    return true;
}

std::string ProfilePage::DefaultProfilePath() const
{
    const std::string existing = FindFileNoCase(session_.programFolder, kDefaultProfileName);
    return existing.empty() ? JoinPath(session_.programFolder, kDefaultProfileName) : existing;
}

void ProfilePage::ReadDefaultPWP()
{
    const std::string path = FindFileNoCase(session_.programFolder, kDefaultProfileName);
    if (!path.empty())
        ReadPWP(FromNativePath(path));
}

void ProfilePage::WriteDefaultPWP() { WriteProfileFile(DefaultProfilePath(), CurrentInputs()); }

}  // namespace pw
