// The face without a display: everything is a question on the command line.
#pragma once

#include "refhost/core/face.h"
#include "refhost/core/helppages.h"
#include "refhost/core/output.h"
#include "refhost/core/prompts.h"

namespace quelhost {

class TextFace : public Face
{
public:
    // REQUIRES: both services outlive the face.
    TextFace(Prompts& prompts, Output& output, HelpPages help);

    [[nodiscard]] int askBox(const BoxRequest& request) override;
    // Asks for a path under the title until it is that of an existing file; Enter cancels.
    [[nodiscard]] std::optional<PickedFile> pickFile(const FileRequest& request) override;
    void showHelp(const QString& page) override;

private:
    Prompts& m_prompts;
    Output& m_output;
    const HelpPages m_help;
};

} // namespace quelhost
