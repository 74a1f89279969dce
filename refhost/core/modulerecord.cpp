#include "refhost/core/modulerecord.h"

#include "refhost/core/dynamicsymbol.h"
#include "refhost/core/missingsymbols.h"

#include <QFileInfo>

#include <dlfcn.h>

namespace quelhost {

namespace {

constexpr char kEntryPoint[] = "GetQuelCmdApplication";

QString loaderMessage()
{
    const char* message = dlerror();
    return message == nullptr ? QString() : QString::fromUtf8(message);
}

} // namespace

ModuleRecord::ModuleRecord(QString path)
    : m_path(std::move(path))
{}

ModuleRecord::~ModuleRecord()
{
    stop();
}

Status ModuleRecord::start(IQuelCommandStore& store)
{
    if (m_state == State::Registered)
        return Done{};
    Status loaded = load();
    if (!loaded)
        return loaded;
    Status initialized = initialize();
    if (!initialized)
        return initialized;
    m_store = &store;
    m_application->registCommand(m_store);
    m_state = State::Registered;
    return Done{};
}

Status ModuleRecord::load()
{
    const QFileInfo info(m_path);
    if (!info.exists())
        return fail(FaultKind::NotFound, qtTrId("module-no-file").arg(m_path));
    // With a path that holds no slash the loader would search its own folders.
    const QByteArray absolute = info.absoluteFilePath().toLocal8Bit();
    m_library = dlopen(absolute.constData(), RTLD_NOW | RTLD_LOCAL);
    if (m_library == nullptr) {
        const QString message = loaderMessage();
        const QStringList missing = missingSymbols(absolute.constData(), message);
        if (!missing.isEmpty())
            return fail(
                FaultKind::BadInput,
                qtTrId("module-missing-symbols").arg(m_path, missing.join(QStringLiteral(", "))));
        return fail(FaultKind::BadInput, qtTrId("module-no-library").arg(m_path, message));
    }
    const auto entry = functionNamed<GetQuelCmdApplicationFunction>(m_library, kEntryPoint);
    if (entry == nullptr)
        return fail(FaultKind::BadInput,
                    qtTrId("module-no-entry").arg(m_path, QLatin1String(kEntryPoint)));
    m_application = entry();
    if (m_application == nullptr)
        return fail(FaultKind::BadInput, qtTrId("module-no-application").arg(m_path));
    m_state = State::Loaded;
    return Done{};
}

Status ModuleRecord::initialize()
{
    const int ready = m_application->initialize();
    if (ready != 1)
        return fail(FaultKind::BadInput,
                    qtTrId("module-not-ready").arg(m_path, QString::number(ready)));
    m_state = State::Initialized;
    return Done{};
}

Status ModuleRecord::fail(FaultKind kind, const QString& sentence)
{
    unload();
    m_state = State::Failed;
    return Fault{kind, sentence, {}, 0, 0};
}

void ModuleRecord::unload()
{
    m_application = nullptr;
    if (m_library != nullptr)
        dlclose(m_library);
    m_library = nullptr;
}

void ModuleRecord::stop()
{
    if (m_state == State::Registered)
        m_application->unregistCommand(m_store);
    if (m_state == State::Registered || m_state == State::Initialized)
        m_application->uninitialize();
    unload();
    if (m_state != State::Failed)
        m_state = State::Unloaded;
}

void ModuleRecord::send(QuelCmdAppMsg message)
{
    if (m_state == State::Registered)
        m_application->sendMessage(message, nullptr, nullptr);
}

} // namespace quelhost
