// "Choose an OnScreen Helper": which character helps the users of this machine.
#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "controls/dialog.h"
#include "controls/image_button.h"
#include "helper/helper_setting.h"

// The ground of the pictures: a lighter shade of the dialog's. Added as one number, so that a channel above
// 245 carries into the next.
COLORREF PictureGround(COLORREF buttonFace);

// Stores the choice, as the path of the character's file, in the shell's settings: at OK, and at once when it
// opens where the settings name none of the four. A setting that cannot be written stays as it was.
class CHelperDialog : public CDialog {
 public:
  CHelperDialog();

 protected:
  const char* HelpPage() const override { return "helper.htm"; }
  bool OnInitDialog() override;
  void OnCommand(int id, int code) override;
  void OnOK() override;

 private:
  void SetUpButtons();
  void Select(std::size_t helper);
  void WriteSetting() const;

  std::string windowsFolder_;
  std::size_t selected_ = 0;
  std::array<CImageButton, kHelperNames.size()> buttons_;
};
