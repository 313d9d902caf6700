#pragma once
#include <optional>
#include <utility>
#include <QString>
#include <QWidget>
#include <array>
#include <vector>

#include "analysis/Profile.h"
#include "analysis/ProfileFile.h"
#include "core/views/Seams.h"
#include "analysis/AnalysisSession.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace pw {

class ErrorGuard;

// The profile tab of the main window: the person's entries, validated on
// every edit, and the profile files.
class ProfilePage : public QWidget {
    Q_OBJECT
public:
    // guard: where run-time errors of this page's handlers go (none for a
    // page built on its own, whose errors reach its caller).
    ProfilePage(AnalysisSession& session, Seams& seams, ErrorGuard* guard = nullptr, QWidget* parent = nullptr);

    // Reads the controls into the session's profile, tells an under-age user
    // so, and reports the outcome through profileValidated.
    void ValidateTab1Data();
    // Loads "default.pwp" of the program folder when there is one.
    void ReadDefaultPWP();
    // Saves the controls, valid or not, as the program folder's "default.pwp";
    // a failed write is a PathFileAccess run-time error.
    void WriteDefaultPWP();

    // Loads a profile file into the controls and validates it. A file that is
    // missing, unreadable or not a profile file is reported to the user, keeps
    // what was read before the fault and is not validated: false.
    bool ReadPWP(const QString& path);
    // Writes the controls to path; a failure is a PathFileAccess run-time error.
    void WritePWP(const QString& path);

    // The entries as the controls hold them now.
    ProfileInputs CurrentInputs() const;
    // Sets the controls as the lines of a profile file do, one after the
    // other, each firing its control's handlers. False when a handler met a
    // run-time error; the settings after it are not applied.
    bool ApplySettings(const std::vector<ProfileSetting>& settings);

signals:
    // "New Profile": the entries were emptied for another person.
    void newProfileStarted();
    // Emitted by every validation with its outcome; the main window enables
    // the food-list and analysis tabs, the grid and the view menu from it and,
    // when valid, updates the summary.
    void profileValidated(bool valid);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildControls();

    void txtName_Change();
    void txtYOB_Change();
    void optSex_Click();
    void optLifestyle_Click();
    void txtName_KeyUp();
    void txtYOB_KeyUp();
    void txtHeight_KeyUp();
    void txtWeight_KeyUp();
    void optMeasurement_Click(int index);
    void btnNewProfile_Click();
    void btnLoadProfile_Click();
    void btnSaveProfile_Click();
    void btnTab1Help_Click();

    void NumericKeyUp(QLineEdit* box);
    // A key's release validates only what its change has not validated
    // already: a keystroke reads the profile once.
    void ValidateIfChanged();
    // The guidance line for the boxes as they are, and for a profile just
    // validated from them.
    void ShowGuidance();
    void ShowGuidanceOf(const Profile& profile);
    // Runs a validation from a change handler: while a file is being loaded a
    // run-time error is kept for the loader instead of escaping.
    void ValidateFromHandler();
    void ApplySetting(const ProfileSetting& setting);
    void ReportNotAProfileFile(const QString& path);
    std::string DefaultProfilePath() const;

    ErrorGuard* const guard;  // where the handlers' run-time errors go
    AnalysisSession& session_;
    Seams& seams_;
    bool loading_ = false;
    bool loadFailed_ = false;
    // What the last validation read, and in which year.
    std::optional<std::pair<ProfileInputs, int>> validated_;

    // The controls; each one's objectName is its member name (the option
    // arrays' buttons are "optSex0", "optSex1", ...).
    QLineEdit* txtName = nullptr;
    QLineEdit* txtYOB = nullptr;
    QGroupBox* frmMeasurement = nullptr;
    std::array<QRadioButton*, kMeasurementOptions> optMeasurement{};
    QLineEdit* txtHeight = nullptr;
    QLineEdit* txtWeight = nullptr;
    QLabel* labHeightUnits = nullptr;
    QLabel* labWeightUnits = nullptr;
    QGroupBox* frameSex = nullptr;
    std::array<QRadioButton*, kSexOptions> optSex{};
    QGroupBox* frameLifestyle = nullptr;
    std::array<QRadioButton*, kLifestyleOptions> optLifestyle{};
    QPushButton* btnNewProfile = nullptr;
    QPushButton* btnLoadProfile = nullptr;
    QPushButton* btnSaveProfile = nullptr;
    QPushButton* btnTab1Help = nullptr;
    // Under the boxes: what the profile still needs, in words, while it is
    // not valid.
    QLabel* labProfileGuide = nullptr;
};

}  // namespace pw
