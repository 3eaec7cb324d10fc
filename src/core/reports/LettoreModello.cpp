#include "core/reports/LettoreModello.h"

#include <algorithm>
#include <system_error>

#include "core/reports/Sagoma.h"
#include "core/session/FileTesto.h"
#include "core/values/Testo.h"

namespace fenalto::reports {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kMassimoModello = std::size_t{1} << 20U;
constexpr int kMinimoLato = 2'000;
constexpr int kMassimoLato = 200'000;

struct Carta {
  std::string_view nome;
  int larghezza;
  int altezza;
};
constexpr std::array<Carta, 3> kCarte = {
    {{"a3", 29'700, 42'000}, {"a4", 21'000, 29'700}, {"a5", 14'800, 21'000}}};

std::string InMillimetri(int centesimi) {
  std::string testo = std::to_string(centesimi / 100);
  if (const int resto = centesimi % 100; resto != 0)
    testo += (resto < 10 ? ".0" : ".") + std::to_string(resto);
  return testo;
}

}  // namespace

bool LettoreModello::Sbaglia(int linea, std::string perche) {
  errore_ =
      "modello di stampa «" + nome_ + "», riga " + std::to_string(linea) + ": " + std::move(perche);
  return false;
}

bool LettoreModello::Sbaglia(std::string perche) {
  return Sbaglia(linea_, std::move(perche));
}

Esito<ModelloStampa> LettoreModello::Leggi(std::string_view testo) {
  if (testo.starts_with(kSegnoUtf8)) testo.remove_prefix(kSegnoUtf8.size());
  if (testo.size() > kMassimoModello) {
    return Errore{"modello di stampa «" + nome_ +
                  "»: è troppo grande (oltre 1 MB), non è un modello"};
  }
  while (!testo.empty()) {
    ++linea_;
    const std::size_t fine = std::min(testo.find('\n'), testo.size());
    std::string_view riga = testo.substr(0, fine);
    if (riga.ends_with('\r')) riga.remove_suffix(1);
    testo.remove_prefix(std::min(fine + 1, testo.size()));
    bool riuscito = Utf8Valido(riga) || Sbaglia("non è un testo in UTF-8");
    if (riuscito) {
      const auto parole = ParoleModello(riga);
      riuscito = parole ? parole.Valore().empty() || Interpreta(parole.Valore())
                        : Sbaglia(parole.Errore().messaggio);
    }
    if (!riuscito) return Errore{std::move(errore_)};
  }
  if (!Controlla()) return Errore{std::move(errore_)};
  return std::move(modello_);
}

bool LettoreModello::Interpreta(const Parole& parole) {
  using Lettura = bool (LettoreModello::*)(const Parole&);
  struct Istruzione {
    std::string_view nome;
    Lettura lettura;
    bool inPagina;
    bool altrove;
  };
  static constexpr std::array<Istruzione, 8> kIstruzioni = {{
      {"formato", &LettoreModello::LeggiFormato, true, false},
      {"margine", &LettoreModello::LeggiMargine, true, false},
      {"carattere", &LettoreModello::LeggiCarattere, true, true},
      {"campo", &LettoreModello::LeggiCampo, false, true},
      {"testo", &LettoreModello::LeggiScritta, true, true},
      {"linea", &LettoreModello::LeggiLinea, true, true},
      {"riquadro", &LettoreModello::LeggiRiquadro, true, true},
      {"immagine", &LettoreModello::LeggiImmagine, true, true},
  }};
  const ParolaModello& prima = parole.front();
  const std::string nome = SenzaMaiuscole(prima.testo);
  if (prima.traVirgolette) return Sbaglia("la riga comincia con un testo: manca che cosa è");
  if (nome.starts_with('[')) {
    return parole.size() == 1 ? ApriZona(nome)
                              : Sbaglia("dopo «" + prima.testo + "» la riga deve finire");
  }
  if (zona_ == Zona::Nessuna)
    return Sbaglia("prima di «" + prima.testo + "» va una sezione, per esempio [pagina]");
  if (nome == "inizio" || nome == "fine" || nome == "riga") {
    return zona_ == Zona::Corpo ? LeggiMisuraCorpo(nome, parole)
                                : Sbaglia("«" + nome + "» va nella sezione [corpo]");
  }
  const auto trovata = std::ranges::find(kIstruzioni, nome, &Istruzione::nome);
  if (trovata == kIstruzioni.end()) return Sbaglia("parola sconosciuta «" + prima.testo + "»");
  if (zona_ == Zona::Pagina && !trovata->inPagina)
    return Sbaglia("un campo va in [testata], [corpo] o [piede]");
  if (zona_ != Zona::Pagina && !trovata->altrove)
    return Sbaglia("«" + nome + "» va nella sezione [pagina]");
  return (this->*trovata->lettura)(parole);
}

bool LettoreModello::ApriZona(const std::string& nome) {
  static constexpr std::array<std::pair<std::string_view, Zona>, 4> kZone = {
      {{"[pagina]", Zona::Pagina},
       {"[testata]", Zona::Testata},
       {"[corpo]", Zona::Corpo},
       {"[piede]", Zona::Piede}}};
  for (const auto& [titolo, zona] : kZone) {
    if (titolo != nome) continue;
    zona_ = zona;
    if (zona == Zona::Corpo) lineaCorpo_ = linea_;
    return true;
  }
  return Sbaglia("sezione sconosciuta «" + nome + "»: sono [pagina], [testata], [corpo] e [piede]");
}

bool LettoreModello::LeggiFormato(const Parole& parole) {
  FormatoPagina& formato = modello_.formato_;
  const std::string carta = parole.size() > 1 ? SenzaMaiuscole(parole[1].testo) : std::string();
  if (const auto nota = std::ranges::find(kCarte, carta, &Carta::nome); nota != kCarte.end()) {
    const std::string verso = parole.size() > 2 ? SenzaMaiuscole(parole[2].testo) : "verticale";
    if (parole.size() > 3 || (verso != "verticale" && verso != "orizzontale"))
      return Sbaglia("dopo il nome della carta va «verticale» o «orizzontale»");
    formato.larghezza = nota->larghezza;
    formato.altezza = nota->altezza;
    if (verso == "orizzontale") std::swap(formato.larghezza, formato.altezza);
    return true;
  }
  if (parole.size() != 4 || parole[2].testo != "x")
    return Sbaglia("dopo «formato» va A3, A4 o A5, oppure larghezza x altezza (210 x 297)");
  const auto larghezza = MisuraModello(parole[1]);
  const auto altezza = MisuraModello(parole[3]);
  if (!larghezza) return Sbaglia("per la larghezza " + larghezza.Errore().messaggio);
  if (!altezza) return Sbaglia("per l'altezza " + altezza.Errore().messaggio);
  formato.larghezza = larghezza.Valore();
  formato.altezza = altezza.Valore();
  const auto [minore, maggiore] = std::minmax(formato.larghezza, formato.altezza);
  if (minore < kMinimoLato || maggiore > kMassimoLato)
    return Sbaglia("i lati della pagina vanno da 20 a 2000 mm");
  return true;
}

bool LettoreModello::Misura(const Parole& parole, int& dove) {
  const std::string& nome = parole.front().testo;
  if (parole.size() != 2) return Sbaglia("dopo «" + nome + "» va un numero e niente altro");
  const auto misura = MisuraModello(parole[1]);
  if (!misura) return Sbaglia("dopo «" + nome + "» " + misura.Errore().messaggio);
  dove = misura.Valore();
  return true;
}

bool LettoreModello::LeggiMargine(const Parole& parole) {
  return Misura(parole, modello_.formato_.margine);
}

bool LettoreModello::LeggiMisuraCorpo(const std::string& quale, const Parole& parole) {
  const std::size_t n = quale == "inizio" ? 0 : quale == "fine" ? 1 : 2;
  if (corpo_.at(n)) return Sbaglia("«" + quale + "» è scritto due volte");
  corpo_.at(n) = true;
  int& dove = n == 0 ? modello_.inizioCorpo_ : n == 1 ? modello_.fineCorpo_ : modello_.altezzaRiga_;
  return Misura(parole, dove);
}

bool LettoreModello::LeggiCarattere(const Parole& parole) {
  if (parole.size() < 2 || !parole[1].traVirgolette || Rifila(parole[1].testo).empty())
    return Sbaglia("dopo «carattere» va il nome tra virgolette");
  Carattere nuovo;
  nuovo.famiglia = parole[1].testo;
  const auto letti = LeggiAttributi(parole, 2, "punti grassetto corsivo", nuovo);
  if (!letti) return Sbaglia(letti.Errore().messaggio);
  carattere_ = letti.Valore().carattere;
  return true;
}

std::optional<AttributiModello> LettoreModello::Attributi(
    const Parole& parole, std::size_t n, std::string_view ammessi,
    std::initializer_list<std::string_view> necessari) {
  auto letti = LeggiAttributi(parole, n, ammessi, carattere_);
  if (!letti) {
    Sbaglia(letti.Errore().messaggio);
    return std::nullopt;
  }
  for (const std::string_view nome : necessari) {
    if (letti.Valore().Ha(nome)) continue;
    Sbaglia("manca «" + std::string(nome) + "»");
    return std::nullopt;
  }
  return std::move(letti).Valore();
}

bool LettoreModello::ControllaNome(const std::string& nome) {
  constexpr std::size_t kMassimoNome = 40;
  const auto diNome = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
  };
  if (nome.empty() || nome.size() > kMassimoNome || !std::ranges::all_of(nome, diNome))
    return Sbaglia("«" + nome + "» non è un nome di campo: lettere, cifre e _, al più 40");
  const std::string piegato = SenzaMaiuscole(nome);
  if (piegato.starts_with("r_") != (zona_ == Zona::Corpo)) {
    return Sbaglia("il campo «" + nome + "» è fuori posto: nella sezione [corpo] vanno i campi " +
                   "che cominciano con R_, e solo quelli");
  }
  if (const auto gia = lineaDi_.find(piegato); gia != lineaDi_.end()) {
    return Sbaglia("il campo «" + nome + "» c'è già alla riga " + std::to_string(gia->second));
  }
  lineaDi_.emplace(piegato, linea_);
  return true;
}

bool LettoreModello::LeggiCampo(const Parole& parole) {
  if (parole.size() < 2 || parole[1].traVirgolette)
    return Sbaglia("dopo «campo» va il nome, senza virgolette");
  CampoModello campo;
  campo.nome = parole[1].testo;
  if (!ControllaNome(campo.nome)) return false;
  const bool nelCorpo = zona_ == Zona::Corpo;
  std::string ammessi =
      "x y larghezza sinistra centro destra carattere punti grassetto corsivo formato";
  // Only lines of the body have others below.
  if (nelCorpo) ammessi += " acapo";
  const auto letti = Attributi(parole, 2, ammessi, {"x", "larghezza"});
  if (!letti) return false;
  if (!nelCorpo && !letti->Ha("y")) return Sbaglia("manca «y»");
  campo.x = letti->Misura("x");
  campo.y = letti->Misura("y");
  campo.larghezza = letti->Misura("larghezza");
  campo.allineamento = letti->allineamento.value_or(Allineamento::Sinistra);
  campo.carattere = letti->carattere;
  campo.aCapo = letti->aCapo;
  if (campo.larghezza == 0) return Sbaglia("la larghezza del campo è zero");
  if (letti->formato) {
    if (Sagoma(*letti->formato).Campi() != 1) {
      return Sbaglia("il formato \"" + *letti->formato +
                     "\" deve avere un segnaposto e uno solo, per esempio \"##.###.###,##\"");
    }
    campo.formato = *letti->formato;
  }
  posti_.push_back({linea_, zona_, "il campo «" + campo.nome + "»", campo.x, campo.y,
                    campo.x + campo.larghezza, campo.y, false, nelCorpo});
  modello_.campi_.emplace(SenzaMaiuscole(campo.nome), std::move(campo));
  return true;
}

bool LettoreModello::LeggiScritta(const Parole& parole) {
  if (parole.size() < 2 || !parole[1].traVirgolette)
    return Sbaglia("dopo «testo» va il testo tra virgolette");
  const auto letti =
      Attributi(parole, 2, "x y larghezza sinistra centro destra carattere punti grassetto corsivo",
                {"x", "y"});
  if (!letti) return false;
  Scritta scritta;
  scritta.x = letti->Misura("x");
  scritta.y = letti->Misura("y");
  scritta.larghezza = letti->Misura("larghezza");
  scritta.allineamento = letti->allineamento.value_or(Allineamento::Sinistra);
  scritta.carattere = letti->carattere;
  scritta.testo = parole[1].testo;
  if (scritta.larghezza == 0 && scritta.allineamento != Allineamento::Sinistra)
    return Sbaglia("un testo a destra o al centro ha bisogno di «larghezza»");
  posti_.push_back({linea_, zona_, "il testo \"" + scritta.testo + "\"", scritta.x, scritta.y,
                    scritta.x + scritta.larghezza, scritta.y, zona_ == Zona::Corpo, false});
  modello_.fissi_.emplace_back(std::move(scritta));
  return true;
}

bool LettoreModello::LeggiLinea(const Parole& parole) {
  const auto letti = Attributi(parole, 1, "x1 y1 x2 y2 spessore", {"x1", "y1", "x2", "y2"});
  if (!letti) return false;
  Tratto tratto{letti->Misura("x1"), letti->Misura("y1"), letti->Misura("x2"), letti->Misura("y2")};
  tratto.spessore = letti->Misura("spessore", tratto.spessore);
  posti_.push_back({linea_, zona_, "la linea", std::min(tratto.x1, tratto.x2),
                    std::min(tratto.y1, tratto.y2), std::max(tratto.x1, tratto.x2),
                    std::max(tratto.y1, tratto.y2), true, false});
  modello_.fissi_.emplace_back(tratto);
  return true;
}

bool LettoreModello::LeggiRiquadro(const Parole& parole) {
  const auto letti = Attributi(parole, 1, "x y larghezza altezza spessore grigio",
                               {"x", "y", "larghezza", "altezza"});
  if (!letti) return false;
  Riquadro riquadro;
  riquadro.x = letti->Misura("x");
  riquadro.y = letti->Misura("y");
  riquadro.larghezza = letti->Misura("larghezza");
  riquadro.altezza = letti->Misura("altezza");
  riquadro.grigio = letti->Misura("grigio", riquadro.grigio);
  // A box that isn't filled is there for its border.
  riquadro.spessore = letti->Misura("spessore", letti->Ha("grigio") ? 0 : Tratto().spessore);
  posti_.push_back({linea_, zona_, "il riquadro", riquadro.x, riquadro.y,
                    riquadro.x + riquadro.larghezza, riquadro.y + riquadro.altezza, true, false});
  modello_.fissi_.emplace_back(riquadro);
  return true;
}

bool LettoreModello::LeggiImmagine(const Parole& parole) {
  if (parole.size() < 2 || !parole[1].traVirgolette || parole[1].testo.empty())
    return Sbaglia("dopo «immagine» va il nome del file tra virgolette");
  const auto letti =
      Attributi(parole, 2, "x y larghezza altezza", {"x", "y", "larghezza", "altezza"});
  if (!letti) return false;
  Immagine immagine{letti->Misura("x"), letti->Misura("y"), letti->Misura("larghezza"),
                    letti->Misura("altezza"), parole[1].testo};
  if (cartella_) {
    const fs::path file = *cartella_ / immagine.file;
    std::error_code errore;
    if (!fs::is_regular_file(file, errore))
      return Sbaglia("l'immagine «" + file.string() + "» non esiste");
    immagine.file = file.string();
  }
  posti_.push_back({linea_, zona_, "l'immagine", immagine.x, immagine.y,
                    immagine.x + immagine.larghezza, immagine.y + immagine.altezza, true, false});
  modello_.fissi_.emplace_back(std::move(immagine));
  return true;
}

bool LettoreModello::Controlla() {
  linea_ = std::max(linea_, 1);
  if (zona_ == Zona::Nessuna) return Sbaglia("il file è vuoto");
  if (lineaCorpo_ == 0) return Sbaglia("manca la sezione [corpo]");
  if (modello_.campi_.empty()) return Sbaglia("il modello non ha nessun campo");
  return ControllaCorpo() &&
         std::ranges::all_of(posti_, [this](const Posto& p) { return ControllaPosto(p); });
}

bool LettoreModello::ControllaCorpo() {
  const ModelloStampa& m = modello_;
  if (!corpo_[0] || !corpo_[1])
    return Sbaglia(lineaCorpo_, "nella sezione [corpo] vanno «inizio» e «fine»");
  if (m.inizioCorpo_ >= m.fineCorpo_)
    return Sbaglia(lineaCorpo_, "il corpo finisce prima di cominciare");
  if (m.fineCorpo_ > m.formato_.altezza)
    return Sbaglia(lineaCorpo_, "il corpo finisce fuori dalla pagina, alta " +
                                    InMillimetri(m.formato_.altezza) + " mm");
  // One line for the list, one for the mark that it goes on.
  if (m.altezzaRiga_ == 0 || (m.fineCorpo_ - m.inizioCorpo_) / m.altezzaRiga_ < 2)
    return Sbaglia(lineaCorpo_, "il corpo deve tenere almeno due righe");
  if (2 * m.formato_.margine >= std::min(m.formato_.larghezza, m.formato_.altezza))
    return Sbaglia(lineaCorpo_, "i margini coprono tutta la pagina");
  return true;
}

bool LettoreModello::ControllaPosto(const Posto& posto) {
  const ModelloStampa& m = modello_;
  const FormatoPagina& f = m.formato_;
  if (posto.x2 > f.larghezza || posto.x1 >= f.larghezza) {
    return Sbaglia(posto.linea,
                   posto.cosa + " esce dalla pagina, larga " + InMillimetri(f.larghezza) + " mm");
  }
  if (posto.nelCorpo) {
    if (posto.y1 < m.altezzaRiga_) return true;
    return Sbaglia(posto.linea, posto.cosa + " sta sotto la propria riga, alta " +
                                    InMillimetri(m.altezzaRiga_) + " mm");
  }
  if (posto.y2 > f.altezza || posto.y1 >= f.altezza) {
    return Sbaglia(posto.linea,
                   posto.cosa + " esce dalla pagina, alta " + InMillimetri(f.altezza) + " mm");
  }
  if (posto.disegno) return true;
  if (posto.zona == Zona::Testata && posto.y1 >= m.inizioCorpo_) {
    return Sbaglia(posto.linea, posto.cosa +
                                    " è della testata ma sta sotto l'inizio del corpo, a " +
                                    InMillimetri(m.inizioCorpo_) + " mm");
  }
  if (posto.zona == Zona::Piede && posto.y1 < m.fineCorpo_) {
    return Sbaglia(posto.linea, posto.cosa + " è del piede ma sta sopra la fine del corpo, a " +
                                    InMillimetri(m.fineCorpo_) + " mm");
  }
  return true;
}

}  // namespace fenalto::reports
