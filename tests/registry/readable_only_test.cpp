#include "tests/registry/start_up_fixture.h"
#include "tests/support/file_permissions.h"

namespace orlo
{
namespace
{

/// A register that this user can read and not write, and the folder around it likewise.
class ReadableOnly : public StartUpTest
{
protected:
    ~ReadableOnly() override { Permit(kAll); }

    void StartReadable(const char* name)
    {
        Database("nimbo-full-2000.mdb", name);
        File("Configurazione.ini", "Databases          :" + folder.path().toUtf8() + "/\n");
        QFile::setPermissions(InFolder(name), QFile::ReadOwner);
        Permit(QFile::ReadOwner | QFile::ExeOwner);
        EXPECT_EQ(StartUp(window, InFolder("Configurazione.ini"), Factory()).end,
                  StartUpOutcome::End::Complete);
    }
    QStringList Files() const { return QDir(folder.path()).entryList(QDir::Files, QDir::Name); }

private:
    static constexpr QFile::Permissions kAll =
        QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

    void Permit(QFile::Permissions permissions) const
    {
        QFile::setPermissions(folder.path(), permissions);
    }

    const testing::HeededPermissions heeded_;
};

TEST_F(ReadableOnly, RegisterIsListedAndASaveSaysWhyItCannot)
{
    StartReadable("nimbo.mdb");
    EXPECT_TRUE(pc.dialog.told.empty());
    const QStringList lines = Lines();
    EXPECT_EQ(lines.size(), 8);
    const QByteArray before = Content("nimbo.mdb");
    window.Controls().Tentativi->setText(QStringLiteral("9"));
    window.Controls().cmdAggiorna->click();
    ASSERT_EQ(pc.dialog.told.size(), 1U);
    EXPECT_EQ(pc.dialog.told[0].text,
              QStringLiteral(" 3027 Il database è aperto in sola lettura: non può essere "
                             "modificato."));
    EXPECT_EQ(Lines(), lines);
    EXPECT_EQ(window.Controls().Tentativi->text(), QStringLiteral("9"));
    CloseRegister(state);
    EXPECT_EQ(Content("nimbo.mdb"), before);
    EXPECT_EQ(Files(),
              (QStringList{QStringLiteral("Configurazione.ini"), QStringLiteral("nimbo.mdb")}));
}

TEST_F(ReadableOnly, NameInMixedCaseIsFound)
{
    StartReadable("Nimbo.Mdb");
    EXPECT_EQ(Lines().size(), 8);
}

}  // namespace
}  // namespace orlo
