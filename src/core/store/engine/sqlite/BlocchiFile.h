// Locks on a file beside the database, for stations that share its folder.
//
// Each is an operating-system lock (open-file-description kind, closed on exec) on a byte of the
// lock file: it vanishes with the process that held it, whatever kills it. Who holds it stands in
// the lock file, in a slot of fixed size beside the byte. Each Blocco has a descriptor of its own,
// so two windows of one process exclude each other as two stations do.
#pragma once

#include <filesystem>
#include <memory>

#include "core/store/Blocchi.h"

namespace fenalto::engine::sqlite {

class BlocchiFile final : public Blocchi {
 public:
  /// `file` is made when missing. Throws ErroreArchivio when it can't be made or written.
  BlocchiFile(std::filesystem::path file, std::string stazione, std::string utente);
  ~BlocchiFile() override;
  BlocchiFile(const BlocchiFile&) = delete;
  BlocchiFile& operator=(const BlocchiFile&) = delete;

  void Utente(std::string utente) override;
  Esito<Blocco, Detentore> Record(std::string_view tabella, std::string_view chiave) override;
  Esito<Blocco, Detentore> Tabella(std::string_view tabella,
                                   std::chrono::milliseconds attesa) override;
  [[nodiscard]] std::optional<Detentore> ChiTiene(std::string_view tabella,
                                                  std::string_view chiave) const override;
  Esito<std::unique_ptr<PostoPresenza>, Detentore> Presenza() override;

 private:
  struct Interno;
  std::unique_ptr<Interno> interno_;
};

/// What the file is called that a folder is tried with, but for the process.
inline constexpr const char* kProvaBlocchi = ".prova-blocchi-";
/// Proves with a second process that locks of the kind used here exclude other processes in this
/// folder. False means that the folder's file system doesn't keep locks and data there would be
/// lost.
bool BlocchiAffidabili(const std::filesystem::path& cartella);

}  // namespace fenalto::engine::sqlite
