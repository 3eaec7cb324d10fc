// Printed form of the VAT registers of a period.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/reports/Cornice.h"
#include "vat/register/RegistroIvaInterno.h"

namespace fenalto::vat {

/// Amounts of a printed line.
struct ImportiRiga {
  Importo imponibile;
  Importo iva;
  Importo ivaInd;
  [[nodiscard]] Importo Totale() const { return imponibile + iva + ivaInd; }
  ImportiRiga& operator+=(const ImportiRiga& altri);
};

/// A registration of a register, or a further row of it.
struct RigaRegistro {
  std::int64_t nProt = 0;
  std::int64_t numDoc = 0;
  int anno = 0;
  Data dt;
  std::string cfp;
  std::string conto;
  Data dtFat;
  std::string nFat;
  bool ep = false;
  Data dtIncasso;
  std::string codIva;
  ImportiRiga importi;
};

/// Lays the registers out on pages: rows with amounts carried forward, totals by code, the page of
/// the ventilation, the settlement. Rows are read forward and none is kept.
class TabulatoRegistroIva {
 public:
  TabulatoRegistroIva(Ambiente& ambiente, reports::FabbricaUscite& uscite,
                      const DatiStampaRegistro& dati, const OpzioniRegistroIva& opzioni);
  TabulatoRegistroIva(const TabulatoRegistroIva&) = delete;
  TabulatoRegistroIva& operator=(const TabulatoRegistroIva&) = delete;

  /// Number of the last page; nothing when the user gave up, cancelled, or the output failed.
  std::optional<int> Esegui();

 private:
  struct Parte {
    std::string nome;
    std::string indirizzo;
  };

  // RegistroIvaStampa.cpp: the rows.
  bool Registro(const TotaleRegistro& totale);
  bool Scorri(const TotaleRegistro& totale);
  void FineArticolo(const RigaRegistro& testa, bool incassata);
  void Stendi(const RigaRegistro& riga, bool prima);
  void StendiTesto(const RigaRegistro& riga, bool prima, const std::string& nome);
  void StendiModello(const RigaRegistro& riga, bool prima, const std::string& nome);
  const Parte& ParteDi(const std::string& cfp, const std::string& conto);
  std::string IndirizzoDi(const std::string& cfp, const std::string& conto);
  const std::string& DescrizioneIva(const std::string& cod);

  // RegistroIvaPagine.cpp: heads, ends of pages, totals.
  void Testata();
  void TestataTestoRegistro();
  void TestataModello();
  void Spazio(int righe);
  void FinePagina();
  void Progressivi(const std::string& testo, const ImportiRiga& importi);
  void ProgressiviModello(const std::string& testo, const ImportiRiga& importi, double y);
  void Seguito(const std::string& testo);
  void Titoletto(const std::string& testo);
  void Scrittura(const std::string& testo);
  void Totali(const TotaleRegistro& totale);
  void TotaliCodici(const std::string& titolo, const std::vector<TotaleCodice>& codici);
  void RigaTotale(const TotaleCodice& codice);
  void PaginaVentilazione(const TotaleRegistro& totale);
  void RegistroAcquisti(const std::string& riva, std::int64_t aaNProt);
  void CampiImporti(const ImportiRiga& importi, std::size_t primo);
  void CampiImportiModello(const std::array<const char*, 4>& nomi, const ImportiRiga& importi,
                           double y);
  [[nodiscard]] Valore PerModello(Importo importo) const;

  Ambiente& ambiente_;
  reports::Stampa stampa_;
  reports::FabbricaUscite& uscite_;
  const DatiStampaRegistro& dati_;
  const OpzioniRegistroIva& opzioni_;
  reports::DatiDitta ditta_;
  bool grafico_ = false;
  std::string sezione_;      ///< what the page is about
  bool conRiporto_ = false;  ///< among the rows of a register
  ImportiRiga progressivo_;
  std::string restoNome_;  ///< what the first line of the registration had no room for
  std::string riga_;
  std::string rigaTotale_;
  std::string colonne_;
  std::unique_ptr<Avanzamento> avanzamento_;
  std::int64_t fatti_ = 0;
  std::unordered_map<std::string, Parte> parti_;
  std::unordered_map<std::string, std::string> codici_;
};

}  // namespace fenalto::vat
