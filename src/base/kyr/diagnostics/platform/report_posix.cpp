#include <kyr/diagnostics/report_p.h>

#include <kyr/core/KyrQtVersion.h>
#include <kyr/os/KyrOS.h>
#include <kyr/os/os_file_p.h>

#include <QFile>

#include <algorithm>
#include <exception>

#include <fcntl.h>
#include <gnu/libc-version.h>
#include <link.h>
#include <sys/stat.h>
#include <sys/sysinfo.h>
#include <unistd.h>

namespace Kyr {

namespace {

constexpr std::size_t nameOffset = sizeof(ElfW(Nhdr));

std::size_t padded(std::size_t size) {
  return (size + 3) / 4 * 4;
}

/// The build id among the notes of a loaded module; empty without one.
QString buildIdIn(const unsigned char* notes, std::size_t size) {
  std::size_t at = 0;
  while (size - at > nameOffset) {
    ElfW(Nhdr) note;
    std::copy_n(notes + at, nameOffset, reinterpret_cast<unsigned char*>(&note));
    const std::size_t id = at + nameOffset + padded(note.n_namesz);
    const std::size_t next = id + padded(note.n_descsz);
    if (next > size || next <= at) {
      break;
    }
    if (note.n_type == NT_GNU_BUILD_ID && note.n_namesz == 4 &&
        std::equal(notes + at + nameOffset, notes + at + nameOffset + 4, "GNU")) {
      const auto* const bytes = reinterpret_cast<const char*>(notes + id);
      return QString::fromLatin1(QByteArray(bytes, int(note.n_descsz)).toHex());
    }
    at = next;
  }
  return {};
}

struct ModuleList {
  std::vector<Report::Module> modules;
  std::exception_ptr failure;
};

void append(const dl_phdr_info* info, std::vector<Report::Module>& modules) {
  Report::Module module;
  module.path = modules.empty() ? OS::getExecutable() : QFile::decodeName(info->dlpi_name);
  module.address = info->dlpi_addr;
  for (int i = 0; i < info->dlpi_phnum; ++i) {
    const ElfW(Phdr)& part = info->dlpi_phdr[i];
    if (part.p_type == PT_LOAD) {
      module.size = std::max<std::uint64_t>(module.size, part.p_vaddr + part.p_memsz);
    } else if (part.p_type == PT_NOTE && module.identity.isEmpty()) {
      const auto* const notes =
          reinterpret_cast<const unsigned char*>(info->dlpi_addr) + part.p_vaddr;
      module.identity = buildIdIn(notes, part.p_memsz);
    }
  }
  modules.push_back(module);
}

/// Appends a module to a list. Called with a lock of the system held, which an exception would keep
/// for ever: hence noexcept.
int appendModule(dl_phdr_info* info, std::size_t /*size*/, void* list) noexcept {
  auto& found = *static_cast<ModuleList*>(list);
  try {
    append(info, found.modules);
  } catch (...) {
    found.failure = std::current_exception();
  }
  return found.failure ? 1 : 0;
}

/// Whether a plain file belongs to the user and has this name only: a second name may be that of a
/// private file, given by somebody who wants it packed.
bool isOwn(const struct stat& found) {
  return S_ISREG(found.st_mode) && found.st_uid == ::geteuid() && found.st_nlink == 1;
}

Report::SettingsPlace placeOf(const char* name, QSettings::Scope scope) {
  auto settings = std::make_unique<QSettings>(QSettings::NativeFormat, scope, "ORV");
  QtVersion::assumeUtf8In(*settings);
  settings->setFallbacksEnabled(false);
  return {QString("%1: %2").arg(name, settings->fileName()), std::move(settings)};
}

}  // namespace

std::int64_t Report::secondsSinceStart() {
  struct sysinfo found {};
  return ::sysinfo(&found) == 0 ? found.uptime : -1;
}

QString Report::runtimeVersion() {
  return QString("glibc %1").arg(::gnu_get_libc_version());
}

std::vector<Report::Module> Report::modules() {
  ModuleList found;
  ::dl_iterate_phdr(&appendModule, &found);
  if (found.failure) {
    std::rethrow_exception(found.failure);
  }
  return found.modules;
}

std::vector<Report::SettingsPlace> Report::settingsPlaces() {
  std::vector<SettingsPlace> places;
  places.push_back(placeOf("user", QSettings::UserScope));
  places.push_back(placeOf("machine", QSettings::SystemScope));
  return places;
}

Report::Reading_t Report::readOwnFile(const QString& path, std::int64_t most, OwnFile& file) {
  const std::string name = Platform::nativePath(path).native();
  const int descriptor =
      ::open(name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
  struct stat found {};
  QFile content;
  if (descriptor < 0) {
    return ::lstat(name.c_str(), &found) == 0 && !isOwn(found) ? Reading_t::Foreign
                                                               : Reading_t::Failed;
  }
  if (!content.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered,
                    QFileDevice::AutoCloseHandle)) {
    ::close(descriptor);
    return Reading_t::Failed;
  }
  if (::fstat(descriptor, &found) != 0 || !isOwn(found)) {
    return Reading_t::Foreign;
  }
  file.size = found.st_size;
  file.modified = found.st_mtime;
  const std::int64_t wanted = std::min<std::int64_t>(most, file.size);
  content.seek(file.size - wanted);
  file.end = content.read(wanted);
  return content.error() == QFileDevice::NoError ? Reading_t::Done : Reading_t::Failed;
}

}  // namespace Kyr
