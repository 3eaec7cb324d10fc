// The invented parties, banks and agents of the company `Demo`.
#pragma once

#include <array>
#include <string_view>

namespace fenalto::demo {

/// `controp`, `codIva` and `pagamento` are what a document of the party proposes.
struct AnagraficaDemo {
  std::string_view ragsoc1;
  std::string_view indirizzo;
  std::string_view cap;
  std::string_view localita;
  std::string_view provincia;
  std::string_view piva;
  std::string_view controp;
  std::string_view codIva;
  std::string_view pagamento;
  std::string_view nazione = "IT";
};

struct BancaDemo {
  std::string_view cod;
  std::string_view nome;
  std::string_view agenzia;
  std::string_view abi;
  std::string_view cab;
  std::string_view conto;
};

struct AgenteDemo {
  std::string_view cod;
  std::string_view descrizione;
  std::string_view provvigione;
  std::string_view localita;
};

// Invented codes that no bank has; and, below, tax numbers of an office that doesn't exist.
inline constexpr std::array<BancaDemo, 3> kBancheDemo = {{
    {"01", "Banca Popolare del Savena", "San Lazzaro", "09991", "37001", "000012345678"},
    {"02", "Credito Cooperativo Belfiore", "Bologna Levante", "09992", "02401", "000000781205"},
    {"03", "Cassa di Risparmio di Montepiano", "Imola", "09993", "21002", "000040011973"},
}};

/// The company's code at the banks that collect its receipts.
inline constexpr std::string_view kSiaDemo = "0DEM0";

inline constexpr std::array<AgenteDemo, 3> kAgentiDemo = {{
    {"01", "Brambilla Ornella", "4.5", "Bologna"},
    {"02", "Caputo Salvatore", "5", "Napoli"},
    {"03", "Dal Pozzo Giulia", "6", "Treviso"},
}};

inline constexpr std::array<AnagraficaDemo, 25> kClientiDemo = {{
    {"Agriturismo Le Sette Querce", "Strada del Poggio 4", "53020", "Trequanda", "SI",
     "12040005006", "700.001", "22", "BB30"},
    {"Albergo Miravalle S.n.c.", "Viale Roma 31", "38068", "Rovereto", "TN", "12075175005",
     "700.001", "22", "RB30"},
    {"Arredamenti Ghisalberti S.r.l.", "Via dell'Artigianato 18", "24040", "Osio Sopra", "BG",
     "12110345001", "700.001", "22", "RB60"},
    {"Bar Pasticceria L'Angolo Dolce", "Piazza Garibaldi 2", "43121", "Parma", "PR", "12145515008",
     "700.001", "22", "CONT"},
    {"Boscolo & Tiengo Costruzioni S.r.l.", "Via Madonna Marina 140", "30015", "Chioggia", "VE",
     "12180685005", "700.001", "22", "BB12"},
    {"Cantina Monteceresa S.Agr.", "Contrada Ceresa 9", "37030", "Montecchia di Crosara", "VR",
     "12215855003", "700.003", "22", "RB12"},
    {"Carrozzeria Vernazza di Vernazza Luca", "Via Aurelia 212", "16167", "Genova", "GE",
     "12251025008", "700.001", "22", "BB30D"},
    {"Centro Estetico Aurora", "Corso Mazzini 77", "63100", "Ascoli Piceno", "AP", "12286195008",
     "700.001", "22", "RD"},
    {"Condominio Residenza dei Tigli", "Via dei Tigli 15", "20831", "Seregno", "MB", "12321365004",
     "700.001", "22", "BB60"},
    {"Cooperativa Sociale Il Girasole", "Via Gramsci 5", "42019", "Scandiano", "RE", "12356535000",
     "700.001", "22", "POS"},
    {"D'Onofrio Ristorazione S.r.l.", "Via Tuscolana 880", "00174", "Roma", "RM", "12391705006",
     "700.001", "22", "BB30"},
    {"Elettrotecnica Malaspina S.r.l.", "Via Carriona 60", "54033", "Carrara", "MS", "12426875006",
     "700.003", "22", "RB30"},
    {"Falegnameria Zanotelli Ivo", "Via alle Segherie 3", "38033", "Cavalese", "TN", "12462045001",
     "700.001", "22", "RB60"},
    {"Farmacia Dott.ssa Berardi", "Corso Umberto I 110", "70056", "Molfetta", "BA", "12497215009",
     "700.001", "22", "CONT"},
    {"Floricoltura Verdefiore S.S.", "Via Acquasanta 27", "55049", "Viareggio", "LU", "12532385007",
     "700.001", "22", "BB12"},
    {"Hotel Scoglio Bianco S.r.l.", "Lungomare Colombo 8", "84043", "Agropoli", "SA", "12567555003",
     "700.001", "22", "RB12"},
    {"Istituto Comprensivo Collodoro", "Via della Scuola 1", "06024", "Gubbio", "PG", "12602725009",
     "700.001", "22", "BB30D"},
    {"Lavanderia Nuvola di Sanna Rita", "Via Sassari 43", "09124", "Cagliari", "CA", "12637895009",
     "700.003", "22", "RD"},
    {"Macelleria Fratelli Pautasso", "Via Cavour 12", "12042", "Bra", "CN", "12673065004",
     "700.001", "22", "BB60"},
    {"Officine Meccaniche Rovatti S.p.A.", "Via dell'Industria 101", "41012", "Carpi", "MO",
     "12708235002", "700.001", "22", "POS"},
    {"Panificio Santacroce S.n.c.", "Via Matteotti 56", "86100", "Campobasso", "CB", "12743405008",
     "700.001", "22", "BB30"},
    {"Studio Tecnico Ing. Peruzzotti", "Via XX Settembre 20", "21052", "Busto Arsizio", "VA",
     "12778575006", "700.001", "22", "RB30"},
    {"Tipografia Inchiostro Vivo S.a.s.", "Via dei Mille 9", "33170", "Pordenone", "PN",
     "12813745002", "700.001", "22", "RB60"},
    {"Trattoria Da Nunzia", "Vico Storto 6", "80134", "Napoli", "NA", "12848915000", "700.003",
     "22", "CONT"},
    {"Vivai Torrebruna S.Agr.", "Contrada Fonte 2", "66050", "Torrebruna", "CH", "12884085007",
     "700.001", "22", "BB12"},
}};

// The last three: who sells in the Union, who sells from outside it, and the customs office.
inline constexpr std::array<AnagraficaDemo, 18> kFornitoriDemo = {{
    {"Acciai e Profilati Cerrone S.p.A.", "Via Torino 300", "10036", "Settimo Torinese", "TO",
     "24100005008", "500.001", "22", "RB60"},
    {"Assicurazioni Rondinelli & Partners", "Via Larga 14", "40138", "Bologna", "BO", "24147295000",
     "520.007", "E10", "BB"},
    {"Autotrasporti Ferlito S.r.l.", "Zona Industriale Blocco 7", "95121", "Catania", "CT",
     "24194585006", "500.010", "22", "BB30"},
    {"Cartotecnica Valsugana S.r.l.", "Via Brenta 22", "38051", "Borgo Valsugana", "TN",
     "24241875004", "500.004", "22", "RB30"},
    {"Chimica Adriatica Delfino S.p.A.", "Via Darsena 88", "48122", "Ravenna", "RA", "24289165003",
     "500.003", "22", "BB60"},
    {"Colorificio Arcobaleno Brianza S.r.l.", "Via Lecco 130", "20871", "Vimercate", "MB",
     "24336455001", "500.001", "22", "RB12"},
    {"Distribuzione Utensili Nordest S.r.l.", "Via dell'Economia 41", "36100", "Vicenza", "VI",
     "24383745007", "500.001", "22", "RB60"},
    {"Elettroforniture Lagorio S.r.l.", "Via Molteni 5", "16151", "Genova", "GE", "24431035005",
     "500.001", "22", "BB30"},
    {"Idrosanitaria Pontelungo S.r.l.", "Via Emilia Ponente 250", "40132", "Bologna", "BO",
     "24478325004", "500.001", "22", "BB12"},
    {"Imballaggi Casarotto S.n.c.", "Via Postumia 77", "31050", "Ponzano Veneto", "TV",
     "24525615001", "500.004", "22", "BB30D"},
    {"Legnami Valdastico S.r.l.", "Via Segheria 10", "36011", "Arsiero", "VI", "24572905008",
     "500.002", "22", "RB60"},
    {"Minuterie Metalliche Galbusera S.r.l.", "Via per Oggiono 19", "23848", "Oggiono", "LC",
     "24620195008", "500.001", "22", "RB30"},
    {"Servizi Informatici Pixelquadro S.r.l.", "Via Savonarola 8", "35137", "Padova", "PD",
     "24667485007", "520.010", "22", "BB30"},
    {"Studio Commercialisti Marchetti-Ruocco", "Via Manzoni 44", "50121", "Firenze", "FI",
     "24714775004", "520.003", "22", "BB"},
    {"Vetreria San Donnino S.n.c.", "Via Pistoiese 305", "50145", "Firenze", "FI", "24762065001",
     "520.002", "22", "BB30D"},
    {"Werkzeug Hallenbach GmbH", "Ahornweg 12", "80999", "Monaco di Baviera", "", "DE999999990",
     "500.030", "22R", "BB60", "DE"},
    {"Harbour Bright Hardware Ltd.", "Quayside Road 88", "", "Ningbo", "", "", "500.031", "22",
     "BB30", "CN"},
    {"Dogana di Ravenna", "Via Antico Squero 31", "48122", "Ravenna", "RA", "", "900.230", "22",
     "CONT"},
}};

}  // namespace fenalto::demo
