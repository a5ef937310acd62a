// SPDX-License-Identifier: MIT
#include "network/frmNETPATH.h"

#include "forms/controls/Controls.h"
#include "network/model/NetworkLocation.h"
#include "platform/Paths.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "shell/vdfunctions/vdLocation.h"
#include "shell/vdwindows/vdFormLoadError.h"

#include <QLabel>
#include <QPushButton>

namespace tol::network {
namespace {

constexpr int maxLength = 60;

} // namespace

frmNETPATH::frmNETPATH(std::function<void(const std::string&)> changed)
    : Form("frmNETPATH"),
      m_tellChanged(std::move(changed)),
      m_location(*this, forms::addLabel(*this, "lblHNETPATH", "Database Location:", {225, 225, 1800, 330}),
                 maxLength, {2025, 225, 6000, 330}) {
    setWindowTitle("Location of Wendry Database");
    setScaleSize(8250, 1425);
    m_location.setUpperCase();
    forms::addButton(*this, "cmdUpdate", "&Update", {5400, 825, 1275, 375}, [this] { cmdUpdate_Click(); });
    cmdCancel =
        &forms::addButton(*this, "cmdCancel", "&Cancel", {6750, 825, 1275, 375}, [this] { unload(); });
    setCancelButton(cmdCancel);
}

void frmNETPATH::onLoad() {
    m_loadFinished = false;
    mChanged = false;
    try {
        m_netPath = data::OpenTable("wksNETPATH", locationFile, locationTable);
        m_location.show(shell::vdNetworkFolder(m_netPath.rows));
        m_loadFinished = true;
    } catch (const runtime::RuntimeError& error) {
        shell::vdFormLoadError(*this, *cmdCancel, "frmNETPATH", std::to_string(error.number()),
                               error.description());
    }
}

void frmNETPATH::onUnload() {
    if (m_loadFinished)
        m_netPath.Close();
    m_loadFinished = false;
    m_netPath = {};
    if (mChanged)
        m_tellChanged(m_newPath);
}

void frmNETPATH::cmdUpdate_Click() {
    const std::string location = m_location.location();
    storeLocation(m_netPath.rows, location);
    m_newPath = platform::withoutBackslash(runtime::trim(location));
    mChanged = true;
    unload();
}

} // namespace tol::network
