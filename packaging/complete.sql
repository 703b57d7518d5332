CREATE TABLE `Environment` (`Environment` CHAR(72) NOT NULL, `Name` CHAR(255) NOT NULL LOCALIZABLE, `Value` CHAR(255) LOCALIZABLE, `Component_` CHAR(72) NOT NULL PRIMARY KEY `Environment`)
INSERT INTO `Environment` (`Environment`, `Name`, `Value`, `Component_`) VALUES ('MachinePath', '=-*PATH', '[~];[TessalyFolder]Kelvanstead Scheme Manager', 'CommandLine')
INSERT INTO `InstallExecuteSequence` (`Action`, `Sequence`) VALUES ('RemoveEnvironmentStrings', 3300)
INSERT INTO `InstallExecuteSequence` (`Action`, `Sequence`) VALUES ('WriteEnvironmentStrings', 5200)
UPDATE `InstallExecuteSequence` SET `Sequence` = 1501 WHERE `Action` = 'RemoveExistingProducts'
UPDATE `File` SET `Version` = '@VERSION@', `Language` = '2057' WHERE `File` = 'Program.exe'
UPDATE `File` SET `Version` = '@VERSION@', `Language` = '2057' WHERE `File` = 'ksm.exe'
DELETE FROM `MsiFileHash` WHERE `File_` = 'Program.exe'
DELETE FROM `MsiFileHash` WHERE `File_` = 'ksm.exe'
